#pragma once

#include "Controllers/RoutingRules.h"

#include <utility>

namespace corvane {

/// How many of the crosspoints that a salvo changed the router has confirmed.
struct FiringProgress {
    qint64 confirmed = 0;
    qint64 total = 0;
    bool operator==(const FiringProgress&) const = default;
};

/// The crosspoints of a fired salvo that the router has not confirmed yet.
class SalvoFiring {
public:
    /// Salvos of more routes than this are followed; smaller ones are over before anybody has looked.
    static constexpr qsizetype leastRoutes = 200;

    /// Only what changes is waited for: not every router repeats what is in force already.
    explicit SalvoFiring(const QList<Route>& changes);

    /// Returns whether this was waited for.
    bool confirm(const Crosspoint& tally);
    bool confirm(const RouterState& state);
    [[nodiscard]] bool isDone() const { return m_awaited.isEmpty(); }
    [[nodiscard]] FiringProgress progress() const { return {m_total - m_awaited.size(), m_total}; }

private:
    /// By level and destination.
    QHash<std::pair<qint64, qint64>, qint64> m_awaited;
    qint64 m_total = 0;
};

} // namespace corvane
