#pragma once

#include "Views/CanvasCellField.h"

#include <QRectF>

namespace corvane {

/// Where everything of the grid is, in points of the view: headers that stay, and the field that scrolls
/// beneath them.
struct GridLayout {
    /// Room behind the last column.
    static constexpr double trailingPadding = 24;

    CanvasCellField field;
    double destWidth = 138;
    double headerHeight = 104;
    /// Room below the last row, for what floats over the grid's lower edge.
    double controlBarClearance = 0;
    QSizeF viewport;
    /// How far the content is moved to the left and up.
    QPointF scroll;

    /// Where the field begins when nothing is scrolled.
    [[nodiscard]] QPointF fieldOrigin() const { return {destWidth + field.gap, headerHeight + field.gap}; }
    [[nodiscard]] QSizeF contentSize() const;
    [[nodiscard]] QPointF maximumScroll() const;
    [[nodiscard]] QPointF clampedScroll(QPointF wanted) const;

    /// The positions of which anything is to be seen.
    [[nodiscard]] GridSpan columnsInView() const;
    [[nodiscard]] GridSpan rowsInView() const;

    [[nodiscard]] bool contains(GridPlace place) const;
    [[nodiscard]] QRectF rectOf(GridPlace place) const;
    /// The part of the view in which a place of this kind is drawn; what reaches out of it is beneath the
    /// headers.
    [[nodiscard]] QRectF areaOf(GridPlace place) const;
    /// Nothing in gaps, in the corner and outside.
    [[nodiscard]] std::optional<GridPlace> placeAt(QPointF point) const;

    /// The smallest scroll that brings a place wholly into view, clear of headers and of what floats over the
    /// lower edge.
    [[nodiscard]] QPointF scrollShowing(GridPlace place) const;
    /// Where the focus goes from `from`; the same place if the key leads nowhere, nothing for a key that
    /// moves no focus.
    [[nodiscard]] std::optional<GridPlace> moved(
        GridPlace from, int key, Qt::KeyboardModifiers modifiers) const;

private:
    [[nodiscard]] int rowsInPage() const;
};

} // namespace corvane
