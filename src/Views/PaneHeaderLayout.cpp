#include "Views/PaneHeaderLayout.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

/// Fewer points than this show nothing but an ellipsis.
constexpr double leastSubtitle = 28;

enum class Subtitle { whole, leftOut };

double withSpacing(double part)
{
    return part > 0 ? paneHeaderSpacing + part : 0;
}

double width(const PaneHeaderFit& fit, const PaneHeaderParts& parts, Subtitle subtitle)
{
    return paneHeaderDot + (fit.showsTitle ? withSpacing(parts.title) : 0)
        + (subtitle == Subtitle::whole ? withSpacing(parts.subtitle) : 0)
        + (fit.showsCount ? withSpacing(parts.count) : 0)
        + withSpacing(fit.showsLabels ? parts.labelledActions : parts.iconActions);
}

/// What the fit takes at the least: a subtitle that may be cut short takes nothing.
double leastWidth(const PaneHeaderFit& fit, const PaneHeaderParts& parts)
{
    const bool isWhole = parts.subtitleIsPriority || !fit.showsTitle;
    return width(fit, parts, isWhole ? Subtitle::whole : Subtitle::leftOut);
}

} // namespace

PaneHeaderFit fitPaneHeader(const PaneHeaderParts& parts, double available)
{
    const std::array candidates{
        PaneHeaderFit{.showsTitle = true, .showsCount = true}, PaneHeaderFit{.showsTitle = true}};
    const auto* const first = std::ranges::find_if(
        candidates, [&](const PaneHeaderFit& fit) { return leastWidth(fit, parts) <= available; });
    PaneHeaderFit fit = first == candidates.end() ? PaneHeaderFit() : *first;

    fit.showsLabels = true;
    fit.showsLabels = leastWidth(fit, parts) <= available;

    const double left = available - width(fit, parts, Subtitle::leftOut) - paneHeaderSpacing;
    const double subtitle = std::min(parts.subtitle, left);
    fit.subtitleWidth = subtitle < std::min(leastSubtitle, parts.subtitle) ? 0 : subtitle;
    return fit;
}

} // namespace corvane
