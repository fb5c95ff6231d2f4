#include "Theme/Fonts.h"

#include <QGuiApplication>
#include <QStyleHints>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

/// Windows come out the same on every machine: whatever could sway them is set, or taken away.
void forgetTheMachine()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("FONTCONFIG_FILE", CORVANE_SOURCE_FOLDER "/tests/App/fonts.conf");
    qputenv("LC_ALL", "C.UTF-8");
    // The bus: no desktop is asked whether it is dark.
    for (const char* const swaying :
        {"DBUS_SESSION_BUS_ADDRESS", "QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI",
            "QT_ENABLE_HIGHDPI_SCALING", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "FREETYPE_PROPERTIES"})
        qunsetenv(swaying);
}

} // namespace

int main(int argc, char** argv)
{
    forgetTheMachine();
    QGuiApplication::setOrganizationName(u"CorvaneTests"_s);
    const QGuiApplication application(argc, argv);
    corvane::Fonts::load();
    // A text cursor that stands still.
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
