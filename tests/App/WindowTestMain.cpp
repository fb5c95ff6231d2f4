#include "Theme/Fonts.h"

#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication::setOrganizationName(QStringLiteral("CorvaneTests"));
    const QGuiApplication application(argc, argv);
    corvane::Fonts::load();
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
