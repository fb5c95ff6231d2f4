#include "Views/PaneLayout.h"

#include <algorithm>
#include <cmath>

namespace corvane {

double PaneLayout::contentHeight() const
{
    const double rows = rowCount == 0 ? 0 : rowCount * stride() - spacing;
    return padding + rows + padding + clearance;
}

double PaneLayout::maximumScroll() const
{
    return std::max(0.0, contentHeight() - viewport.height());
}

QRectF PaneLayout::rectOf(int row) const
{
    return {padding, top(row) - scroll, std::max(0.0, viewport.width() - 2 * padding), rowHeight};
}

bool PaneLayout::isInView(int row) const
{
    return rectOf(row).intersects(QRectF({}, viewport));
}

std::optional<int> PaneLayout::rowAt(QPointF point) const
{
    if (!QRectF({}, viewport).contains(point))
        return std::nullopt;
    const auto row = static_cast<int>(std::floor((point.y() + scroll - padding) / stride()));
    return contains(row) && rectOf(row).contains(point) ? std::optional(row) : std::nullopt;
}

double PaneLayout::scrollShowing(int row) const
{
    const double latest = top(row) - padding;
    const double earliest = std::min(top(row) + rowHeight + padding - clearHeight(), latest);
    return std::clamp(std::clamp(scroll, earliest, latest), 0.0, maximumScroll());
}

double PaneLayout::scrollCentring(int row) const
{
    const double shown = scrollShowing(row);
    if (shown == scroll)
        return scroll;
    return std::clamp(top(row) + rowHeight / 2 - clearHeight() / 2, 0.0, maximumScroll());
}

std::optional<int> PaneLayout::moved(int from, int key) const
{
    const auto to = [&]() -> std::optional<int> {
        switch (key) {
        case Qt::Key_Up:
            return from - 1;
        case Qt::Key_Down:
            return from + 1;
        case Qt::Key_PageUp:
            return from - rowsInPage();
        case Qt::Key_PageDown:
            return from + rowsInPage();
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return rowCount - 1;
        default:
            return std::nullopt;
        }
    }();
    return to ? std::optional(std::clamp(*to, 0, std::max(0, rowCount - 1))) : std::nullopt;
}

int PaneLayout::rowsInPage() const
{
    return std::max(1, static_cast<int>(clearHeight() / stride()) - 1);
}

} // namespace corvane
