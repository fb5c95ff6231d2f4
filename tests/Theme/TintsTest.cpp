#include "Theme/Tints.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

const GlassPalette& palette = GlassPalette::dark();

RouterConnection router(RouterVendor vendor, std::optional<double> hue = std::nullopt)
{
    RouterConnection connection;
    connection.vendor = vendor;
    connection.accentHue = hue;
    return connection;
}

TEST(Tints, EachStatusHasItsWordAndColour)
{
    struct Case {
        ConnectionStatus status;
        StatusLook expected;
    };
    const Case cases[] = {
        {Disconnected{}, {.word = u"Offline"_qs, .color = palette.secondary}},
        {Connecting{}, {.word = u"Connecting…"_qs, .color = palette.orange, .pulses = true}},
        {Connected{}, {.word = u"Online"_qs, .color = palette.green, .glows = true}},
        {ConnectionFailed{u"No route"_qs}, {.word = u"Error"_qs, .color = palette.red}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.expected.word.toStdString());
        EXPECT_EQ(statusLook(c.status, palette), c.expected);
    }
}

TEST(Tints, EachVendorHasItsTint)
{
    const std::pair<RouterVendor, QColor> cases[] = {
        {RouterVendor::simulator, palette.blue},
        {RouterVendor::blackmagicVideohub, palette.blue},
        {RouterVendor::rossUltrix, palette.purple},
        {RouterVendor::ajaKumo, palette.teal},
        {RouterVendor::genericSWP08, palette.indigo},
        {RouterVendor::lightware, palette.mint},
        {RouterVendor::evertzQuartz, palette.cyan},
    };
    for (const auto& [vendor, tint] : cases) {
        SCOPED_TRACE(displayName(vendor).toStdString());
        EXPECT_EQ(routerColor(router(vendor), palette), tint);
    }
}

TEST(Tints, AHueThatTheOperatorChoseWinsOverTheVendorEvenWhenItIsZero)
{
    const auto red = routerColor(router(RouterVendor::ajaKumo, 0.0), palette);
    EXPECT_EQ(red.hsvHue(), 0);
    EXPECT_NEAR(red.hsvSaturationF(), 0.72, 0.005);
    EXPECT_NEAR(red.valueF(), 0.9, 0.005);
    EXPECT_EQ(red.alpha(), 255);
    EXPECT_NEAR(routerColor(router(RouterVendor::ajaKumo, 0.58), palette).hsvHueF(), 0.58, 0.005);
}

TEST(Tints, AHueFromADamagedFileStillGivesAColour)
{
    EXPECT_EQ(routerColor(router(RouterVendor::ajaKumo, -3), palette), hueColor(0));
    EXPECT_EQ(routerColor(router(RouterVendor::ajaKumo, 250), palette), hueColor(1));
    EXPECT_TRUE(hueColor(1).isValid());
}

TEST(Tints, ALevelIsColouredByItsKindAndFoundByItsIndex)
{
    RouterState state;
    state.levels = {
        {4, u"Ancillary"_qs, LevelKind::data},
        {0, u"Video"_qs, LevelKind::video},
        {1, u"Audio"_qs, LevelKind::audio},
        {2, u"All"_qs, LevelKind::multi},
    };
    const std::pair<qint64, QColor> cases[] = {
        {0, palette.blue},
        {1, palette.green},
        {2, palette.purple},
        {4, palette.orange},
        {3, palette.accent},
    };
    for (const auto& [level, tint] : cases) {
        SCOPED_TRACE(level);
        EXPECT_EQ(levelTint(state, level, palette), tint);
    }
}

} // namespace
