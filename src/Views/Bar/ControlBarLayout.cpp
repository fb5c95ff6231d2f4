#include "Views/Bar/ControlBarLayout.h"

#include <algorithm>
#include <vector>

namespace corvane {

namespace {

constexpr double maximumWidth = 820;
constexpr double sidePadding = 16;
constexpr double edgePadding = 9;
constexpr double partSpacing = 14;
constexpr double rowSpacing = 10;
constexpr QSizeF zoomDividerSize{1, 26};
constexpr QSizeF takeDividerSize{1, 28};

struct Part {
    QRectF ControlBarPlaces::*place;
    QSizeF size;
};

using Row = std::vector<Part>;
using Rows = std::vector<Row>;

void addPart(Row& row, QRectF ControlBarPlaces::*place, const QSizeF& size)
{
    if (!size.isEmpty())
        row.push_back({place, size});
}

/// A divider needs something on both of its sides.
void addDividedPart(Row& row, QRectF ControlBarPlaces::*divider, const QSizeF& dividerSize,
    QRectF ControlBarPlaces::*place, const QSizeF& size)
{
    if (!row.empty() && !size.isEmpty())
        row.push_back({divider, dividerSize});
    addPart(row, place, size);
}

double width(const Row& row)
{
    double sum = row.empty() ? 0 : partSpacing * static_cast<double>(row.size() - 1);
    for (const auto& part : row)
        sum += part.size.width();
    return sum;
}

double width(const Rows& rows)
{
    double widest = 0;
    for (const auto& row : rows)
        widest = std::max(widest, width(row));
    return widest;
}

double height(const Row& row)
{
    double highest = 0;
    for (const auto& part : row)
        highest = std::max(highest, part.size.height());
    return highest;
}

Row levelAndZoomRow(const ControlBarParts& parts)
{
    Row row;
    addPart(row, &ControlBarPlaces::levelPicker, parts.levelPicker);
    addPart(row, &ControlBarPlaces::followButton, parts.followButton);
    addDividedPart(row, &ControlBarPlaces::zoomDivider, zoomDividerSize, &ControlBarPlaces::zoom, parts.zoom);
    return row;
}

Row takeRow(const ControlBarParts& parts)
{
    Row row;
    addPart(row, &ControlBarPlaces::takeCluster, parts.takeCluster);
    return row;
}

Rows singleRow(const ControlBarParts& parts)
{
    auto row = levelAndZoomRow(parts);
    addDividedPart(row, &ControlBarPlaces::takeDivider, takeDividerSize, &ControlBarPlaces::takeCluster,
        parts.takeCluster);
    return {row};
}

Rows twoRow(const ControlBarParts& parts)
{
    return {levelAndZoomRow(parts), takeRow(parts)};
}

Rows threeRow(const ControlBarParts& parts, double innerWidth)
{
    Row follow;
    addPart(follow, &ControlBarPlaces::followButton, parts.followButton);

    Row levels;
    const double zoomWidth = parts.zoom.isEmpty() ? 0 : parts.zoom.width() + partSpacing;
    const double room = std::max(0.0, innerWidth - zoomWidth);
    addPart(levels, &ControlBarPlaces::levelPicker,
        {std::min(parts.levelPicker.width(), room), parts.levelPicker.height()});
    addPart(levels, &ControlBarPlaces::zoom, parts.zoom);
    return {follow, levels, takeRow(parts)};
}

Rows firstThatFits(const ControlBarParts& parts, double innerWidth)
{
    if (auto rows = singleRow(parts); width(rows) <= innerWidth)
        return rows;
    if (auto rows = twoRow(parts); width(rows) <= innerWidth)
        return rows;
    return threeRow(parts, innerWidth);
}

void place(const Row& row, double rowTop, double innerWidth, ControlBarPlaces& places)
{
    double x = sidePadding + (innerWidth - width(row)) / 2;
    for (const auto& part : row) {
        const double y = rowTop + (height(row) - part.size.height()) / 2;
        places.*part.place = QRectF({x, y}, part.size);
        x += part.size.width() + partSpacing;
    }
}

} // namespace

ControlBarPlaces layOutControlBar(const ControlBarParts& parts, double availableWidth)
{
    auto rows = firstThatFits(parts, std::min(availableWidth, maximumWidth) - 2 * sidePadding);
    std::erase_if(rows, [](const Row& row) { return row.empty(); });
    if (rows.empty())
        return {};

    const double innerWidth = width(rows);
    ControlBarPlaces places;
    double y = edgePadding;
    for (const auto& row : rows) {
        place(row, y, innerWidth, places);
        y += height(row) + rowSpacing;
    }
    places.bar = {innerWidth + 2 * sidePadding, y - rowSpacing + edgePadding};
    return places;
}

} // namespace corvane
