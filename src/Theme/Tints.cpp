#include "Theme/Tints.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr float hueSaturation = 0.72F;
constexpr float hueBrightness = 0.9F;

QColor kindTint(LevelKind kind, const GlassPalette& palette)
{
    switch (kind) {
    case LevelKind::video:
        return palette.blue;
    case LevelKind::audio:
        return palette.green;
    case LevelKind::data:
        return palette.orange;
    case LevelKind::multi:
        return palette.purple;
    }
    return palette.accent;
}

struct StatusLooks {
    const GlassPalette& palette;
    StatusLook operator()(const ConnectionFailed&) const { return {u"Error"_s, palette.red}; }
    StatusLook operator()(const Disconnected&) const { return {u"Offline"_s, palette.secondary}; }
    StatusLook operator()(const Connecting&) const
    {
        return {.word = u"Connecting…"_s, .color = palette.orange, .pulses = true};
    }
    StatusLook operator()(const Connected&) const
    {
        return {.word = u"Online"_s, .color = palette.green, .glows = true};
    }
};

} // namespace

StatusLook statusLook(const ConnectionStatus& status, const GlassPalette& palette)
{
    return std::visit(StatusLooks{palette}, status);
}

QColor vendorTint(RouterVendor vendor, const GlassPalette& palette)
{
    switch (vendor) {
    case RouterVendor::simulator:
    case RouterVendor::blackmagicVideohub:
        return palette.blue;
    case RouterVendor::rossUltrix:
        return palette.purple;
    case RouterVendor::ajaKumo:
        return palette.teal;
    case RouterVendor::genericSWP08:
        return palette.indigo;
    case RouterVendor::lightware:
        return palette.mint;
    case RouterVendor::evertzQuartz:
        return palette.cyan;
    }
    return palette.accent;
}

QColor hueColor(double hue)
{
    return QColor::fromHsvF(static_cast<float>(std::clamp(hue, 0.0, 1.0)), hueSaturation, hueBrightness);
}

QColor routerColor(const RouterConnection& connection, const GlassPalette& palette)
{
    return connection.accentHue ? hueColor(*connection.accentHue) : vendorTint(connection.vendor, palette);
}

QColor levelTint(const RouterState& state, qint64 level, const GlassPalette& palette)
{
    const auto found = std::ranges::find(state.levels, level, &RouterLevel::index);
    return found == state.levels.cend() ? palette.accent : kindTint(found->kind, palette);
}

} // namespace corvane
