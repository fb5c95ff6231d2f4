#pragma once

#include "Views/GridPlace.h"

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <optional>

namespace corvane {

/// The field of cells as arithmetic: where each cell is, and which one a point hits. In points, from the
/// field's own corner.
struct CanvasCellField {
    int sourceCount = 0;
    int destinationCount = 0;
    double cell = 44;
    double gap = 5;

    [[nodiscard]] double stride() const { return cell + gap; }
    [[nodiscard]] QSizeF size() const;
    [[nodiscard]] std::optional<int> columnAt(double x) const;
    [[nodiscard]] std::optional<int> rowAt(double y) const;
    /// Nothing outside the field and in the gaps. The last point of a cell still belongs to it.
    [[nodiscard]] std::optional<GridPlace> hitTest(QPointF point) const;

    /// How the field as a whole is read out.
    [[nodiscard]] QString accessibleLabel() const;
    static QString accessibleHint();
};

} // namespace corvane
