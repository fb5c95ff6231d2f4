#include "Views/CanvasCellField.h"

#include <cmath>

namespace corvane {

namespace {

/// The position whose cell a coordinate falls on.
std::optional<int> position(double coordinate, const CanvasCellField& field, int count)
{
    const double whole = std::floor(coordinate / field.stride());
    if (!(whole >= 0) || whole >= count || coordinate - field.stride() * whole > field.cell)
        return std::nullopt;
    return static_cast<int>(whole);
}

} // namespace

QSizeF CanvasCellField::size() const
{
    return {std::max(0.0, sourceCount * stride() - gap), std::max(0.0, destinationCount * stride() - gap)};
}

std::optional<int> CanvasCellField::columnAt(double x) const
{
    return position(x, *this, sourceCount);
}

std::optional<int> CanvasCellField::rowAt(double y) const
{
    return position(y, *this, destinationCount);
}

std::optional<GridPlace> CanvasCellField::hitTest(QPointF point) const
{
    const auto column = columnAt(point.x());
    const auto row = rowAt(point.y());
    if (!column || !row)
        return std::nullopt;
    return GridPlace{*row, *column};
}

QString CanvasCellField::accessibleLabel() const
{
    return QStringLiteral("Crosspoint grid, %1 sources by %2 destinations")
        .arg(sourceCount)
        .arg(destinationCount);
}

QString CanvasCellField::accessibleHint()
{
    return QStringLiteral(
        "In Take mode, activate a destination header, then use a source header's Route action");
}

} // namespace corvane
