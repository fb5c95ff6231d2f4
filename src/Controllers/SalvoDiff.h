#pragma once

#include "Model/RouterModels.h"

namespace corvane {

/// What firing a salvo would do to the live routing. Each of its routes lands in exactly one of `changes`,
/// `unchanged`, `locked` and `missing`; the lists keep the salvo's order.
struct SalvoDiff {
    /// Routes that a fire would really change.
    QList<Route> changes;
    /// How many routes match already.
    qint64 unchanged = 0;
    /// Routes on locked destinations, matching or not.
    QList<Route> locked;
    /// How many of `locked` differ from the live routing.
    qint64 lockedMismatched = 0;
    /// Routes that this router can't carry at all.
    QList<Route> missing;

    bool operator==(const SalvoDiff&) const = default;

    /// Whether a router with this state has the route's level, destination and source. Destination and source
    /// are compared with the number of ports.
    static bool isCarried(const Route& route, const RouterState& state);
    static QList<Route> applicableRoutes(const Salvo& salvo, const RouterState& state);
    static SalvoDiff between(const Salvo& salvo, const RouterState& state);
};

/// The current source of every destination in `panel` that the router has, or of all without a panel; level
/// by level, and destinations without a known source left out.
QList<Route> captureRoutes(const RouterState& state, const std::optional<SubPanel>& panel);

} // namespace corvane
