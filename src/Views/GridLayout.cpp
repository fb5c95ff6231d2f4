#include "Views/GridLayout.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

GridSpan inView(double from, double to, double stride, int count)
{
    const auto first = static_cast<int>(std::clamp(std::floor(from / stride), 0.0, double(count)));
    const auto end = static_cast<int>(std::clamp(std::ceil(to / stride), double(first), double(count)));
    return {first, end};
}

/// The scroll, as near to `scroll` as can be, at which `from`…`to` lies within a window `length` long.
double scrollAround(double scroll, double from, double to, double length)
{
    const double latest = from;
    const double earliest = std::min(to - length, latest);
    return std::clamp(scroll, earliest, latest);
}

} // namespace

QSizeF GridLayout::contentSize() const
{
    const QSizeF cells = field.size();
    return {fieldOrigin().x() + cells.width() + trailingPadding,
        fieldOrigin().y() + cells.height() + controlBarClearance};
}

QPointF GridLayout::maximumScroll() const
{
    const QSizeF content = contentSize();
    return {std::max(0.0, content.width() - viewport.width()),
        std::max(0.0, content.height() - viewport.height())};
}

QPointF GridLayout::clampedScroll(QPointF wanted) const
{
    const QPointF maximum = maximumScroll();
    return {std::clamp(wanted.x(), 0.0, maximum.x()), std::clamp(wanted.y(), 0.0, maximum.y())};
}

GridSpan GridLayout::columnsInView() const
{
    const double from = scroll.x() - field.gap;
    return inView(from, scroll.x() + viewport.width() - fieldOrigin().x(), field.stride(), field.sourceCount);
}

GridSpan GridLayout::rowsInView() const
{
    const double from = scroll.y() - field.gap;
    return inView(
        from, scroll.y() + viewport.height() - fieldOrigin().y(), field.stride(), field.destinationCount);
}

bool GridLayout::contains(GridPlace place) const
{
    const bool isInside = place.row >= GridPlace::header && place.row < field.destinationCount
        && place.column >= GridPlace::header && place.column < field.sourceCount;
    return isInside && (place.row != GridPlace::header || place.column != GridPlace::header);
}

QRectF GridLayout::rectOf(GridPlace place) const
{
    const bool isInHeaderRow = place.row == GridPlace::header;
    const bool isInHeaderColumn = place.column == GridPlace::header;
    const double x = isInHeaderColumn ? 0 : fieldOrigin().x() + place.column * field.stride() - scroll.x();
    const double y = isInHeaderRow ? 0 : fieldOrigin().y() + place.row * field.stride() - scroll.y();
    return {x, y, isInHeaderColumn ? destWidth : field.cell, isInHeaderRow ? headerHeight : field.cell};
}

QRectF GridLayout::areaOf(GridPlace place) const
{
    const double left = place.column == GridPlace::header ? 0 : destWidth;
    const double top = place.row == GridPlace::header ? 0 : headerHeight;
    const double right = place.column == GridPlace::header ? destWidth : viewport.width();
    const double bottom = place.row == GridPlace::header ? headerHeight : viewport.height();
    return {left, top, std::max(0.0, right - left), std::max(0.0, bottom - top)};
}

std::optional<GridPlace> GridLayout::placeAt(QPointF point) const
{
    if (!QRectF(QPointF(), viewport).contains(point))
        return std::nullopt;
    const bool isInHeaderRow = point.y() < headerHeight;
    const bool isInHeaderColumn = point.x() < destWidth;
    if (isInHeaderRow && isInHeaderColumn)
        return std::nullopt;

    const QPointF inField = point - fieldOrigin() + scroll;
    const auto column = isInHeaderColumn ? GridPlace::header : field.columnAt(inField.x());
    const auto row = isInHeaderRow ? GridPlace::header : field.rowAt(inField.y());
    if (!column || !row)
        return std::nullopt;
    return GridPlace{*row, *column};
}

QPointF GridLayout::scrollShowing(GridPlace place) const
{
    QPointF wanted = scroll;
    if (place.column != GridPlace::header) {
        const double from = place.column * field.stride();
        wanted.setX(scrollAround(scroll.x(), from, from + field.cell, viewport.width() - fieldOrigin().x()));
    }
    if (place.row != GridPlace::header) {
        const double from = place.row * field.stride();
        const double length = viewport.height() - fieldOrigin().y() - controlBarClearance;
        wanted.setY(scrollAround(scroll.y(), from, from + field.cell, length));
    }
    return clampedScroll(wanted);
}

std::optional<GridPlace> GridLayout::moved(GridPlace from, int key, Qt::KeyboardModifiers modifiers) const
{
    GridPlace to = from;
    const bool toTheEdge = modifiers.testFlag(Qt::ControlModifier);
    switch (key) {
    case Qt::Key_Left:
        --to.column;
        break;
    case Qt::Key_Right:
        ++to.column;
        break;
    case Qt::Key_Up:
        --to.row;
        break;
    case Qt::Key_Down:
        ++to.row;
        break;
    case Qt::Key_Home:
        to = {toTheEdge ? 0 : from.row, 0};
        break;
    case Qt::Key_End:
        to = {toTheEdge ? field.destinationCount - 1 : from.row, field.sourceCount - 1};
        break;
    case Qt::Key_PageUp:
        to.row = std::max(to.row - rowsInPage(), std::min(from.row, 0));
        break;
    case Qt::Key_PageDown:
        to.row = std::min(to.row + rowsInPage(), field.destinationCount - 1);
        break;
    default:
        return std::nullopt;
    }
    return contains(to) ? to : from;
}

int GridLayout::rowsInPage() const
{
    const double height = viewport.height() - fieldOrigin().y() - controlBarClearance;
    return std::max(1, static_cast<int>(height / field.stride()) - 1);
}

} // namespace corvane
