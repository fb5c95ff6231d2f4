#include "Theme/Contrast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace corvane {

namespace {

constexpr double washOpacity = 0.16;
constexpr float mixStep = 0.02F;

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor& color, const QColor& other, double share)
{
    return laidOver(withOpacity(other, share), color);
}

/// Darker, and more colourful as it darkens: mixing in black alone would leave it dull.
QColor deepened(const QColor& color, float share)
{
    const auto [hue, saturation, value] = std::tuple(color.hsvHueF(), color.hsvSaturationF(), color.valueF());
    const auto colourful = saturation == 0 ? 0 : std::lerp(saturation, 1.0F, std::min(1.0F, 4 * share));
    return QColor::fromHsvF(std::max(hue, 0.0F), colourful, value * (1 - share));
}

bool isLegible(const QColor& text, const QColor& tint, const GlassPalette& palette)
{
    const std::array surfaces{palette.window, palette.sidebar, palette.surface};
    const auto standsOutOn = [&](const QColor& ground) {
        return contrastRatio(text, ground) >= textContrast;
    };
    return standsOutOn(palette.raised) && std::ranges::all_of(surfaces, [&](const QColor& surface) {
        return standsOutOn(surface) && standsOutOn(laidOver(palette.quaternary, surface))
            && standsOutOn(laidOver(withOpacity(tint, washOpacity), surface));
    });
}

} // namespace

double contrastRatio(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor laidOver(const QColor& top, const QColor& bottom)
{
    const auto opacity = top.alphaF();
    const auto blend = [opacity](float over, float under) { return over * opacity + under * (1 - opacity); };
    return QColor::fromRgbF(blend(top.redF(), bottom.redF()), blend(top.greenF(), bottom.greenF()),
        blend(top.blueF(), bottom.blueF()));
}

QColor tintText(const QColor& tint, const GlassPalette& palette)
{
    auto text = tint;
    for (float share = mixStep; share <= 1 && !isLegible(text, tint, palette); share += mixStep)
        text = mixed(tint, palette.text, share);
    return text;
}

QColor tintFill(const QColor& tint, const GlassPalette& palette)
{
    auto fill = tint;
    for (float share = mixStep; share <= 1 && contrastRatio(fill, palette.onTint) < textContrast;
         share += mixStep)
        fill = deepened(tint, share);
    return fill;
}

} // namespace corvane
