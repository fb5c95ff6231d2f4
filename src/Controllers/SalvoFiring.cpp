#include "Controllers/SalvoFiring.h"

namespace corvane {

SalvoFiring::SalvoFiring(const QList<Route>& changes)
{
    for (const auto& route : changes)
        m_awaited.insert({route.level, route.destination}, route.source);
    m_total = m_awaited.size();
}

bool SalvoFiring::confirm(const Crosspoint& tally)
{
    const auto awaited = m_awaited.constFind({tally.level, tally.destination});
    if (awaited == m_awaited.cend() || *awaited != tally.source)
        return false;
    m_awaited.erase(awaited);
    return true;
}

bool SalvoFiring::confirm(const RouterState& state)
{
    return m_awaited.removeIf([&](const auto& awaited) {
        const auto [level, destination] = awaited.key();
        return state.source(destination, level) == awaited.value();
    }) > 0;
}

} // namespace corvane
