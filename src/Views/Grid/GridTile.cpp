#include "Views/Grid/GridTile.h"

#include <QHashFunctions>

#include <type_traits>

namespace corvane {

namespace {

// Their bytes say everything, so that these are hashed as they are.
static_assert(std::has_unique_object_representations_v<CellLook>);
static_assert(std::has_unique_object_representations_v<CellStrip>);

size_t hash(const CornerTile&, size_t seed)
{
    return seed;
}

size_t hash(const CellStrip& strip, size_t seed)
{
    return qHashBits(&strip, sizeof strip, seed);
}

size_t hash(const RowHeaderTile& tile, size_t seed)
{
    const auto& [dest, routedLabel, offPanelFeed, locked, isPendingDest] = tile.header;
    return qHashMulti(
        seed, dest.index, dest.label, routedLabel, offPanelFeed, locked, isPendingDest, tile.hasFocus);
}

size_t hash(const ColumnHeaderTile& tile, size_t seed)
{
    const auto& [source, isArmed, signalPresent] = tile.header;
    const int signal = signalPresent ? 1 + int(*signalPresent) : 0;
    return qHashMulti(seed, source.index, source.label, isArmed, signal, tile.hasFocus);
}

} // namespace

size_t qHash(const CellLook& look, size_t seed)
{
    return qHashBits(&look, sizeof look, seed);
}

size_t qHash(const GridTile& tile, size_t seed)
{
    return std::visit([&](const auto& alternative) { return hash(alternative, seed); }, tile);
}

} // namespace corvane
