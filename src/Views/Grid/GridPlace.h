#pragma once

#include <QHashFunctions>

namespace corvane {

/// A place in the grid by position, not by port index. Row -1 is the row of column headers, column -1 the
/// column of row headers; both together are the corner.
struct GridPlace {
    static constexpr int header = -1;

    int row = 0;
    int column = 0;

    bool operator==(const GridPlace&) const = default;
    [[nodiscard]] bool isRowHeader() const { return column == header && row != header; }
    [[nodiscard]] bool isColumnHeader() const { return row == header && column != header; }
    [[nodiscard]] bool isCell() const { return row != header && column != header; }
};

/// Positions from `first` up to but without `end`.
struct GridSpan {
    int first = 0;
    int end = 0;

    bool operator==(const GridSpan&) const = default;
    [[nodiscard]] bool contains(int position) const { return position >= first && position < end; }
};

inline size_t qHash(const GridPlace& place, size_t seed = 0)
{
    return qHashMulti(seed, place.row, place.column);
}

} // namespace corvane
