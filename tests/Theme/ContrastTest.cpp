#include "Theme/Contrast.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

struct Named {
    const char* name;
    QColor color;
};

std::vector<Named> surfaces(const GlassPalette& palette)
{
    return {{"window", palette.window}, {"sidebar", palette.sidebar}, {"surface", palette.surface}};
}

std::vector<Named> tints(const GlassPalette& palette)
{
    return {{"accent", palette.accent}, {"blue", palette.blue}, {"purple", palette.purple},
        {"teal", palette.teal}, {"indigo", palette.indigo}, {"mint", palette.mint}, {"cyan", palette.cyan},
        {"orange", palette.orange}, {"green", palette.green}, {"red", palette.red}};
}

/// What lies under text somewhere: each surface bare, under a quiet fill, and under the wash of a selection.
std::vector<Named> fills(const GlassPalette& palette)
{
    std::vector<Named> all{{"raised", palette.raised}};
    for (const auto& [name, surface] : surfaces(palette)) {
        all.push_back({name, surface});
        all.push_back({name, laidOver(palette.quaternary, surface)});
        all.push_back({name, laidOver(palette.selection, surface)});
    }
    return all;
}

class InLightAndDark : public testing::TestWithParam<const GlassPalette*> { };

INSTANTIATE_TEST_SUITE_P(Contrast, InLightAndDark,
    testing::Values(&GlassPalette::light(), &GlassPalette::dark()),
    [](const auto& tested) { return tested.param->isDark ? "Dark" : "Light"; });

TEST(Contrast, AgreesWithTheRatiosThatTheStandardGives)
{
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrastRatio(QColor(0x777777), Qt::white), 4.48, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::red, Qt::white), contrastRatio(Qt::white, Qt::red), 1e-9);
}

TEST_P(InLightAndDark, TextCanBeReadOnEveryFill)
{
    const auto& palette = *GetParam();
    for (const auto& [name, fill] : fills(palette)) {
        SCOPED_TRACE(name);
        EXPECT_GE(contrastRatio(palette.text, fill), textContrast);
        EXPECT_GE(contrastRatio(palette.secondary, fill), textContrast);
    }
    EXPECT_GE(contrastRatio(palette.text, palette.selectedSegment), textContrast);
}

TEST_P(InLightAndDark, MarksStandOutOnEverySurfaceAndOnTheirOwnWash)
{
    const auto& palette = *GetParam();
    for (const auto& [tintName, tint] : tints(palette)) {
        for (const auto& [surfaceName, surface] : surfaces(palette)) {
            SCOPED_TRACE(testing::Message() << tintName << " on " << surfaceName);
            EXPECT_GE(contrastRatio(tint, surface), markContrast);
            EXPECT_GE(contrastRatio(tint, laidOver(withOpacity(tint, 0.15), surface)), markContrast);
        }
    }
}

TEST_P(InLightAndDark, ATintMadeTextCanBeReadOnEverySurfaceAndOnItsOwnWash)
{
    const auto& palette = *GetParam();
    for (const auto& [tintName, tint] : tints(palette)) {
        const auto text = tintText(tint, palette);
        for (const auto& [surfaceName, surface] : surfaces(palette)) {
            SCOPED_TRACE(testing::Message() << tintName << " on " << surfaceName);
            EXPECT_GE(contrastRatio(text, surface), textContrast);
            EXPECT_GE(contrastRatio(text, laidOver(withOpacity(tint, 0.15), surface)), textContrast);
        }
    }
}

TEST_P(InLightAndDark, ATintMadeAFillCarriesText)
{
    const auto& palette = *GetParam();
    for (const auto& [name, tint] : tints(palette)) {
        SCOPED_TRACE(name);
        EXPECT_GE(contrastRatio(palette.onTint, tintFill(tint, palette)), textContrast);
    }
}

TEST(Contrast, AColourThatCanBeReadAlreadyIsLeftAlone)
{
    const auto& dark = GlassPalette::dark();
    EXPECT_EQ(tintText(dark.mint, dark), dark.mint);
    const auto& light = GlassPalette::light();
    EXPECT_EQ(tintFill(light.blue, light), light.blue);
}

} // namespace
