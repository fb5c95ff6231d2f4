#include "Theme/GlassKit.h"

#include <QGuiApplication>
#include <QPalette>

#include <gmock/gmock.h>

using namespace corvane;

namespace {

/// The application's palette, put back when the test ends.
class SystemAppearanceTest : public testing::Test {
protected:
    void TearDown() override { QGuiApplication::setPalette(m_before); }

    static void setWindows(const QColor& window, const QColor& text)
    {
        auto palette = QGuiApplication::palette();
        palette.setColor(QPalette::Window, window);
        palette.setColor(QPalette::WindowText, text);
        QGuiApplication::setPalette(palette);
        QCoreApplication::processEvents();
    }

private:
    const QPalette m_before = QGuiApplication::palette();
};

TEST_F(SystemAppearanceTest, TheColoursFollowTheSystemsWindows)
{
    setWindows(Qt::white, Qt::black);
    const GlassKit kit{nullptr};
    EXPECT_FALSE(kit.isDark());
    EXPECT_EQ(kit.palette().window, GlassPalette::light().window);

    testing::MockFunction<void()> changed;
    QObject::connect(&kit, &GlassKit::paletteChanged, &kit, changed.AsStdFunction());
    EXPECT_CALL(changed, Call()).Times(1);
    setWindows(QColor(0x202020), Qt::white);
    setWindows(QColor(0x303030), Qt::white);
    EXPECT_TRUE(kit.isDark());
    EXPECT_EQ(kit.palette().window, GlassPalette::dark().window);
}

} // namespace
