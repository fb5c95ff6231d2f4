#pragma once

#include <QRectF>

#include <optional>

namespace corvane {

/// Where the rows of a pane are, in points of their area. All rows are equally high.
struct PaneLayout {
    /// Around the rows, and between two of them.
    static constexpr double padding = 10;
    static constexpr double spacing = 6;

    int rowCount = 0;
    double rowHeight = 0;
    /// Room below the last row, for what floats over the area's lower edge.
    double clearance = 0;
    QSizeF viewport;
    /// How far the rows are moved up.
    double scroll = 0;

    [[nodiscard]] double stride() const { return rowHeight + spacing; }
    [[nodiscard]] double contentHeight() const;
    [[nodiscard]] double maximumScroll() const;

    [[nodiscard]] bool contains(int row) const { return row >= 0 && row < rowCount; }
    [[nodiscard]] QRectF rectOf(int row) const;
    [[nodiscard]] bool isInView(int row) const;
    /// Nothing between rows and beside them.
    [[nodiscard]] std::optional<int> rowAt(QPointF point) const;

    /// The scroll nearest to the present one that brings a row wholly into view, clear of what floats over
    /// the lower edge.
    [[nodiscard]] double scrollShowing(int row) const;
    /// The same, but with the row in the middle if it is not in view already.
    [[nodiscard]] double scrollCentring(int row) const;
    /// Where the focus goes from `from`; the same row if the key leads nowhere, nothing for a key that moves
    /// no focus.
    [[nodiscard]] std::optional<int> moved(int from, int key) const;

private:
    [[nodiscard]] double top(int row) const { return padding + row * stride(); }
    [[nodiscard]] double clearHeight() const { return viewport.height() - clearance; }
    [[nodiscard]] int rowsInPage() const;
};

} // namespace corvane
