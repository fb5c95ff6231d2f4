#pragma once

#include "Views/Grid/GridPlace.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace corvane {

/// Where everything of the grid is, in points of the view: headers that stay in view, and the field of cells
/// that scrolls beneath them. All of it is computed; a large router has too many cells to keep an item for
/// each.
struct GridLayout {
    /// Room behind the last column.
    static constexpr double trailingPadding = 24;

    int sourceCount = 0;
    int destinationCount = 0;
    /// Side of a cell.
    double cell = 0;
    /// Between two cells.
    double gap = 0;
    double destWidth = 0;
    double headerHeight = 0;
    /// Room below the last row, for the bar that floats over the grid's lower edge.
    double controlBarClearance = 0;
    QSizeF viewport;
    /// How far the content is moved to the left and up.
    QPointF scroll;

    /// From the beginning of one cell to that of the next.
    [[nodiscard]] double stride() const { return cell + gap; }
    /// Where the field begins when nothing is scrolled.
    [[nodiscard]] QPointF fieldOrigin() const { return {destWidth + gap, headerHeight + gap}; }
    [[nodiscard]] QSizeF contentSize() const;
    [[nodiscard]] QPointF maximumScroll() const;
    [[nodiscard]] QPointF clampedScroll(QPointF wanted) const;

    /// The positions of which anything is to be seen.
    [[nodiscard]] GridSpan columnsInView() const;
    [[nodiscard]] GridSpan rowsInView() const;

    [[nodiscard]] bool contains(GridPlace place) const;
    /// Where the keyboard begins: the first cell, or a header where there are no cells. Absent without ports.
    [[nodiscard]] std::optional<GridPlace> firstPlace() const;
    [[nodiscard]] QRectF rectOf(GridPlace place) const;
    [[nodiscard]] bool isInView(GridPlace place) const { return areaOf(place).intersects(rectOf(place)); }
    /// The part of the view in which a place of this kind is drawn; the rest of it is beneath the headers.
    [[nodiscard]] QRectF areaOf(GridPlace place) const;
    /// Nothing in gaps, in the corner and outside. The last point of a cell still belongs to it.
    [[nodiscard]] std::optional<GridPlace> placeAt(QPointF point) const;

    /// The nearest scroll at which a place is wholly in view, clear of the headers and of the bar.
    [[nodiscard]] QPointF scrollShowing(GridPlace place) const;
    /// Where the focus goes from `from`; the same place if the key leads nowhere, nothing for a key that
    /// moves no focus.
    [[nodiscard]] std::optional<GridPlace> moved(
        GridPlace from, int key, Qt::KeyboardModifiers modifiers) const;

private:
    [[nodiscard]] int rowsInPage() const;
};

} // namespace corvane
