#include "Controllers/SalvoDiff.h"

#include "Controllers/RoutingRules.h"

#include <algorithm>

namespace corvane {

namespace {

bool isLive(const Route& route, const RouterState& state)
{
    return state.source(route.destination, route.level) == route.source;
}

QList<qint64> captureTargets(const RouterState& state, const std::optional<SubPanel>& panel)
{
    QList<qint64> targets;
    if (!panel) {
        for (const auto& port : state.destinations)
            targets.append(port.index);
        return targets;
    }
    const auto present = routing::portIndices(state.destinations);
    std::ranges::copy_if(panel->destinationIndices, std::back_inserter(targets),
        [&](qint64 destination) { return present.contains(destination); });
    return targets;
}

} // namespace

bool SalvoDiff::isCarried(const Route& route, const RouterState& state)
{
    return route.destination >= 0 && route.destination < state.destinations.size() && route.source >= 0
        && route.source < state.sources.size()
        && std::ranges::any_of(
            state.levels, [&](const RouterLevel& level) { return level.index == route.level; });
}

QList<Route> SalvoDiff::applicableRoutes(const Salvo& salvo, const RouterState& state)
{
    QList<Route> routes;
    std::ranges::copy_if(salvo.routes, std::back_inserter(routes),
        [&](const Route& route) { return isCarried(route, state) && !state.isLocked(route.destination); });
    return routes;
}

SalvoDiff SalvoDiff::between(const Salvo& salvo, const RouterState& state)
{
    SalvoDiff diff;
    for (const auto& route : salvo.routes) {
        if (!isCarried(route, state)) {
            diff.missing.append(route);
        } else if (state.isLocked(route.destination)) {
            diff.locked.append(route);
            diff.lockedMismatched += isLive(route, state) ? 0 : 1;
        } else if (isLive(route, state)) {
            ++diff.unchanged;
        } else {
            diff.changes.append(route);
        }
    }
    return diff;
}

QList<Route> captureRoutes(const RouterState& state, const std::optional<SubPanel>& panel)
{
    const auto targets = captureTargets(state, panel);
    QList<Route> routes;
    for (const auto& level : state.levels) {
        for (const auto destination : targets) {
            if (const auto source = state.source(destination, level.index))
                routes.append({level.index, destination, *source});
        }
    }
    return routes;
}

} // namespace corvane
