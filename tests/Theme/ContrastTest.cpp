#include "Theme/Contrast.h"
#include "Theme/Tints.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

struct Named {
    std::string name;
    QColor color;
};
using Colors = std::vector<Named>;

/// Each of `grounds` under a layer.
Colors beneath(const QColor& layer, const std::string& layerName, const Colors& grounds)
{
    Colors covered;
    for (const auto& [name, color] : grounds)
        covered.push_back({layerName + " on " + name, laidOver(layer, color)});
    return covered;
}

Colors together(std::initializer_list<Colors> parts)
{
    Colors all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Colors surfaces(const GlassPalette& palette)
{
    return {{"window", palette.window}, {"sidebar", palette.sidebar}, {"surface", palette.surface}};
}

Colors levels(const GlassPalette& palette)
{
    return {{"accent", palette.accent}, {"blue", palette.blue}, {"purple", palette.purple},
        {"orange", palette.orange}, {"green", palette.green}};
}

Colors tints(const GlassPalette& palette)
{
    return together({levels(palette),
        {{"teal", palette.teal}, {"indigo", palette.indigo}, {"mint", palette.mint}, {"cyan", palette.cyan},
            {"red", palette.red}}});
}

/// The window washed in any colour that a router may have.
Colors washes(const GlassPalette& palette, double opacity)
{
    Colors all;
    for (const auto& [name, tint] : tints(palette))
        all.push_back({name + " wash", laidOver(withOpacity(tint, opacity), palette.window)});
    constexpr int hues = 24;
    for (int hue = 0; hue < hues; ++hue)
        all.push_back({"wash of hue " + std::to_string(hue),
            laidOver(withOpacity(hueColor(double(hue) / hues), opacity), palette.window)});
    return all;
}

/// The panes of the list let what is behind them through. They begin where the wash is half gone.
Colors panes(const GlassPalette& palette)
{
    return beneath(withOpacity(palette.surface, 0.7), "pane", washes(palette, 0.09));
}

/// What a row of a pane lies on, whatever it stands for.
Colors rows(const GlassPalette& palette)
{
    auto all = panes(palette);
    for (const auto& [name, tint] : levels(palette))
        for (const double opacity : {0.12, 0.18})
            all = together({all, beneath(withOpacity(tint, opacity), name + " row", panes(palette))});
    return all;
}

/// Every ground that plain text stands on somewhere.
Colors grounds(const GlassPalette& palette)
{
    const Colors selected = beneath(palette.selection, "selection", {{"sidebar", palette.sidebar}});
    const auto quiet =
        together({surfaces(palette), washes(palette, 0.16), panes(palette), {{"raised", palette.raised}}});
    auto all = together({quiet, selected, rows(palette), beneath(palette.quaternary, "fill", quiet),
        beneath(palette.faint, "hover", surfaces(palette))});
    for (const auto& [name, tint] : levels(palette))
        all.push_back({name + " staged header", laidOver(withOpacity(tint, 0.22), palette.surface)});
    return all;
}

void expectContrast(const Named& ink, const Colors& grounds, double least)
{
    for (const auto& [name, ground] : grounds)
        EXPECT_GE(contrastRatio(laidOver(ink.color, ground), ground), least) << ink.name << " on " << name;
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

TEST_P(InLightAndDark, TextCanBeReadOnEveryGround)
{
    const auto& palette = *GetParam();
    expectContrast({"text", palette.text}, grounds(palette), textContrast);
    expectContrast({"secondary", palette.secondary}, grounds(palette), textContrast);
    expectContrast({"text", palette.text}, {{"segment", palette.selectedSegment}}, textContrast);
}

TEST_P(InLightAndDark, WhatHasNothingToDoCanBeReadYetIsDimmer)
{
    const auto& palette = *GetParam();
    const auto bare = together({surfaces(palette), washes(palette, 0.16), {{"raised", palette.raised}}});
    expectContrast({"unavailable", palette.unavailable},
        together({bare, beneath(palette.quaternary, "fill", bare)}), markContrast);
    EXPECT_LT(contrastRatio(palette.unavailable, palette.surface),
        contrastRatio(palette.secondary, palette.surface) * 0.8);
}

TEST_P(InLightAndDark, LampsLocksAndRingsStandOutWhereTheyAre)
{
    const auto& palette = *GetParam();
    const auto bars =
        together({surfaces(palette), beneath(palette.selection, "selection", {{"sidebar", palette.sidebar}}),
            {{"raised", palette.raised}}});
    for (const auto& lamp : Colors{{"offline", palette.secondary}, {"connecting", palette.orange},
             {"online", palette.green}, {"error", palette.red}}) {
        expectContrast(lamp, bars, markContrast);
        const Colors pill = beneath(withOpacity(lamp.color, 0.15), "pill", surfaces(palette));
        expectContrast(lamp, pill, markContrast);
        expectContrast({lamp.name + " in words", tintText(lamp.color, palette)}, pill, textContrast);
    }
    expectContrast({"focus ring", palette.accent}, together({bars, panes(palette)}), markContrast);
    expectContrast({"lock", palette.orange}, rows(palette), markContrast);
    expectContrast({"lock in a cell", withOpacity(tintText(palette.orange, palette), 0.8)},
        beneath(withOpacity(palette.text, 0.035), "cell", washes(palette, 0.09)), markContrast);
    for (const auto& [name, tint] : levels(palette)) {
        expectContrast({name + " header dot", tint}, panes(palette), markContrast);
        expectContrast({name + " checkmark", tintText(tint, palette)}, rows(palette), markContrast);
    }
}

TEST_P(InLightAndDark, ATintMadeTextCanBeReadOnEverySurfaceAndOnItsOwnWash)
{
    const auto& palette = *GetParam();
    for (const auto& [name, tint] : tints(palette)) {
        const Named text{name + " text", tintText(tint, palette)};
        expectContrast(text, surfaces(palette), textContrast);
        expectContrast(text, {{"raised", palette.raised}}, textContrast);
        expectContrast(text, beneath(palette.quaternary, "fill", surfaces(palette)), textContrast);
        expectContrast(text, beneath(withOpacity(tint, 0.16), "own wash", surfaces(palette)), textContrast);
    }
    for (const auto& [name, tint] : levels(palette))
        expectContrast({name + " text", tintText(tint, palette)},
            beneath(withOpacity(tint, 0.15), "own wash", panes(palette)), textContrast);
    for (const auto& [name, tint] : {std::pair{"source number", palette.green}, {"number", palette.orange}})
        expectContrast({name, tintText(tint, palette)},
            beneath(withOpacity(tint, 0.08), "header", {{"surface", palette.surface}}), textContrast);
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
