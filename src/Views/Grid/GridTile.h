#pragma once

#include "Views/Grid/GridRowView.h"

#include <array>
#include <variant>

/// What the pictures of the grid depend on, besides the style that all have in common. Equal tiles share one
/// picture.
namespace corvane {

/// How one cell is drawn: its state, and how far its transitions have come.
struct CellLook {
    static constexpr quint8 connectionSteps = 16;
    static constexpr quint8 hoverSteps = 8;

    bool isPending = false;
    bool highlighted = false;
    bool locked = false;
    bool hasFocus = false;
    /// 0 not connected … `connectionSteps` connected.
    quint8 connection = 0;
    /// 0 at rest … `hoverSteps` raised.
    quint8 hover = 0;

    bool operator==(const CellLook&) const = default;
};

/// Neighbouring cells of one row: few enough that a route repaints few, and enough that a screen takes few
/// tiles.
struct CellStrip {
    static constexpr int capacity = 8;

    std::array<CellLook, capacity> looks;
    quint8 count = 0;

    bool operator==(const CellStrip&) const = default;
};

struct RowHeaderTile {
    DestinationRowHeader header;
    bool hasFocus = false;
    bool operator==(const RowHeaderTile&) const = default;
};

struct ColumnHeaderTile {
    SourceColumnHeader header;
    bool hasFocus = false;
    bool operator==(const ColumnHeaderTile&) const = default;
};

struct CornerTile {
    bool operator==(const CornerTile&) const = default;
};

using GridTile = std::variant<CornerTile, CellStrip, RowHeaderTile, ColumnHeaderTile>;

[[nodiscard]] size_t qHash(const CellLook& look, size_t seed = 0);
[[nodiscard]] size_t qHash(const GridTile& tile, size_t seed = 0);

} // namespace corvane
