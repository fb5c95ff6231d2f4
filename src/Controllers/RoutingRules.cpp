#include "Controllers/RoutingRules.h"

#include <algorithm>

namespace corvane::routing {

QList<qint64> ascending(const QSet<qint64>& indices)
{
    QList<qint64> sorted(indices.cbegin(), indices.cend());
    std::ranges::sort(sorted);
    return sorted;
}

QSet<qint64> portIndices(const QList<Port>& ports)
{
    QSet<qint64> indices;
    indices.reserve(ports.size());
    for (const auto& port : ports)
        indices.insert(port.index);
    return indices;
}

QList<qint64> activeLevels(const QList<RouterLevel>& levels, const QSet<qint64>& breakawayLevels)
{
    QList<qint64> all;
    QList<qint64> brokenAway;
    for (const auto& level : levels) {
        all.append(level.index);
        if (breakawayLevels.contains(level.index))
            brokenAway.append(level.index);
    }
    return brokenAway.isEmpty() ? all : brokenAway;
}

QList<qint64> targets(const Selection& selection)
{
    if (!selection.destinations.isEmpty())
        return ascending(selection.destinations);
    if (selection.destination)
        return {*selection.destination};
    return {};
}

bool isTarget(const Selection& selection, qint64 destination)
{
    if (!selection.destinations.isEmpty())
        return selection.destinations.contains(destination);
    return selection.destination == destination;
}

std::optional<PendingTake> pendingTake(
    const Staging& staging, const Selection& selection, RoutingDirection direction)
{
    if (direction == RoutingDirection::sourceLed && selection.source && !staging.destinations.isEmpty())
        return PendingTake{*selection.source, ascending(staging.destinations)};
    if (!staging.source)
        return std::nullopt;
    if (!staging.destinations.isEmpty())
        return PendingTake{*staging.source, ascending(staging.destinations)};
    if (staging.destination)
        return PendingTake{*staging.source, {*staging.destination}};
    return std::nullopt;
}

bool hasStaging(const Staging& staging)
{
    return staging.destination || staging.source || !staging.destinations.isEmpty();
}

Staging staged(qint64 source, const QList<qint64>& destinations)
{
    if (destinations.size() == 1)
        return {.destination = destinations.first(), .source = source, .destinations = {}};
    return {.destination = {},
        .source = source,
        .destinations = QSet<qint64>(destinations.cbegin(), destinations.cend())};
}

Selection toggledInGang(Selection selection, qint64 destination)
{
    auto gang = selection.destinations;
    if (gang.isEmpty() && selection.destination)
        gang.insert(*selection.destination);
    if (!gang.remove(destination))
        gang.insert(destination);

    if (gang.contains(destination))
        selection.destination = destination;
    else if (gang.isEmpty())
        selection.destination.reset();
    else
        selection.destination = *std::ranges::min_element(gang);
    selection.destinations = gang.size() > 1 ? gang : QSet<qint64>();
    return selection;
}

QSet<qint64> unlocked(const QList<Port>& destinations, const QSet<qint64>& locked)
{
    return portIndices(destinations) - locked;
}

bool write(RouterState& state, const Crosspoint& crosspoint)
{
    const auto& [level, destination, source] = crosspoint;
    // Looked up by const access first: what is so already must not copy a table that others share.
    if (state.source(destination, level) == source)
        return false;
    if (source)
        state.routing[level].insert(destination, *source);
    else
        state.routing[level].remove(destination);
    return true;
}

} // namespace corvane::routing
