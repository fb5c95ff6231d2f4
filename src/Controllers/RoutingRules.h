#pragma once

#include "Model/RouterModels.h"

/// What a click aims at, which levels it switches and what it stages, as functions of values.
namespace corvane {

/// What the operator has focused.
struct Selection {
    std::optional<qint64> destination;
    /// The gang; never holds exactly one destination.
    QSet<qint64> destinations;
    std::optional<qint64> source;
    bool operator==(const Selection&) const = default;
};

/// A take in the making.
struct Staging {
    std::optional<qint64> destination;
    std::optional<qint64> source;
    QSet<qint64> destinations;
    bool operator==(const Staging&) const = default;
};

/// All that a click which routes nothing may change.
struct Aim {
    Selection selection;
    Staging staging;
    bool operator==(const Aim&) const = default;
};

/// What the operator has set, selected and staged at one router.
struct OperatorState {
    RouteViewMode viewMode = RouteViewMode::matrix;
    TakeMode takeMode = TakeMode::immediate;
    RoutingDirection routingDirection = RoutingDirection::destinationLed;
    qint64 primaryLevel = 0;
    QSet<qint64> breakawayLevels;
    bool multiSelectMode = false;
    Selection selection;
    Staging staging;
    bool operator==(const OperatorState&) const = default;
};

/// A staged take that is complete.
struct PendingTake {
    qint64 source = 0;
    /// Ascending.
    QList<qint64> destinations;
    bool operator==(const PendingTake&) const = default;
};

/// One tally. No source: unknown, or routed to nothing.
struct Crosspoint {
    qint64 level = 0;
    qint64 destination = 0;
    std::optional<qint64> source;
    bool operator==(const Crosspoint&) const = default;
};

namespace routing {

QList<qint64> ascending(const QSet<qint64>& indices);
QSet<qint64> portIndices(const QList<Port>& ports);

/// The levels that a take switches, in the router's order: those broken away, or all if none of them is the
/// router's.
QList<qint64> activeLevels(const QList<RouterLevel>& levels, const QSet<qint64>& breakawayLevels);

/// The destinations that a source click aims at, ascending: the gang, or the focused one.
QList<qint64> targets(const Selection& selection);
/// Whether `targets` holds this destination, without listing them.
bool isTarget(const Selection& selection, qint64 destination);

/// The staged take if there is a complete one. Source-led, the focused source goes to the staged destinations
/// before anything else is considered.
std::optional<PendingTake> pendingTake(
    const Staging& staging, const Selection& selection, RoutingDirection direction);

/// True also while only half a route is staged.
bool hasStaging(const Staging& staging);

/// The source staged on `destinations`, of which there is at least one.
Staging staged(qint64 source, const QList<qint64>& destinations);

/// Puts a destination into the gang or takes it out. The focused destination joins with the first toggle; of
/// a gang that shrinks to one, only the focus remains.
Selection toggledInGang(Selection selection, qint64 destination);

QSet<qint64> unlocked(const QList<Port>& destinations, const QSet<qint64>& locked);

/// Writes one tally; false when it was so already.
bool write(RouterState& state, const Crosspoint& crosspoint);

} // namespace routing

} // namespace corvane
