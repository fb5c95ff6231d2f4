#include "Views/Grid/GridLayout.h"

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

/// The position of the cell at a coordinate of the field.
std::optional<int> positionAt(double coordinate, const GridLayout& layout, int count)
{
    const double whole = std::floor(coordinate / layout.stride());
    if (!(whole >= 0) || whole >= count || coordinate - layout.stride() * whole > layout.cell)
        return std::nullopt;
    return static_cast<int>(whole);
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
    const double width = std::max(0.0, sourceCount * stride() - gap);
    const double height = std::max(0.0, destinationCount * stride() - gap);
    return {fieldOrigin().x() + width + trailingPadding, fieldOrigin().y() + height + controlBarClearance};
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
    const double from = scroll.x() - gap;
    return inView(from, scroll.x() + viewport.width() - fieldOrigin().x(), stride(), sourceCount);
}

GridSpan GridLayout::rowsInView() const
{
    const double from = scroll.y() - gap;
    return inView(from, scroll.y() + viewport.height() - fieldOrigin().y(), stride(), destinationCount);
}

bool GridLayout::contains(GridPlace place) const
{
    const bool isInside = place.row >= GridPlace::header && place.row < destinationCount
        && place.column >= GridPlace::header && place.column < sourceCount;
    return isInside && (place.row != GridPlace::header || place.column != GridPlace::header);
}

std::optional<GridPlace> GridLayout::firstPlace() const
{
    for (const GridPlace place :
        {GridPlace{0, 0}, GridPlace{0, GridPlace::header}, GridPlace{GridPlace::header, 0}})
        if (contains(place))
            return place;
    return std::nullopt;
}

QRectF GridLayout::rectOf(GridPlace place) const
{
    const bool isInHeaderRow = place.row == GridPlace::header;
    const bool isInHeaderColumn = place.column == GridPlace::header;
    const double x = isInHeaderColumn ? 0 : fieldOrigin().x() + place.column * stride() - scroll.x();
    const double y = isInHeaderRow ? 0 : fieldOrigin().y() + place.row * stride() - scroll.y();
    return {x, y, isInHeaderColumn ? destWidth : cell, isInHeaderRow ? headerHeight : cell};
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
    const auto column = isInHeaderColumn ? GridPlace::header : positionAt(inField.x(), *this, sourceCount);
    const auto row = isInHeaderRow ? GridPlace::header : positionAt(inField.y(), *this, destinationCount);
    if (!column || !row)
        return std::nullopt;
    return GridPlace{*row, *column};
}

QPointF GridLayout::scrollShowing(GridPlace place) const
{
    QPointF wanted = scroll;
    if (place.column != GridPlace::header) {
        const double from = place.column * stride();
        wanted.setX(scrollAround(scroll.x(), from, from + cell, viewport.width() - fieldOrigin().x()));
    }
    if (place.row != GridPlace::header) {
        const double from = place.row * stride();
        const double length = viewport.height() - fieldOrigin().y() - controlBarClearance;
        wanted.setY(scrollAround(scroll.y(), from, from + cell, length));
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
        to = {toTheEdge ? destinationCount - 1 : from.row, sourceCount - 1};
        break;
    case Qt::Key_PageUp:
        to.row = std::max(to.row - rowsInPage(), std::min(from.row, 0));
        break;
    case Qt::Key_PageDown:
        to.row = std::min(to.row + rowsInPage(), destinationCount - 1);
        break;
    default:
        return std::nullopt;
    }
    return contains(to) ? to : from;
}

int GridLayout::rowsInPage() const
{
    const double height = viewport.height() - fieldOrigin().y() - controlBarClearance;
    return std::max(1, static_cast<int>(height / stride()) - 1);
}

} // namespace corvane
