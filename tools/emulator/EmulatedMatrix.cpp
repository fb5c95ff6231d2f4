#include "emulator/EmulatedMatrix.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace corvane::emulator {

namespace {

QStringList numbered(const QString& word, int count)
{
    QStringList names;
    for (int number = 1; number <= count; ++number)
        names << u"%1 %2"_s.arg(word).arg(number);
    return names;
}

/// Stores `value` in `place`; true if that made a difference.
template <typename T>
bool assign(T& place, const T& value)
{
    return std::exchange(place, value) != value;
}

} // namespace

MatrixState MatrixState::ofSize(int sources, int destinations, int levels)
{
    QList<int> routes;
    for (int destination = 0; destination < destinations; ++destination)
        routes << (sources > 0 ? destination % sources : noSource);
    return {
        .sourceLabels = numbered(u"Input"_s, sources),
        .destinationLabels = numbered(u"Output"_s, destinations),
        .routes = QList<QList<int>>(levels, routes),
        .lockOwners = QList<std::optional<ClientId>>(destinations),
    };
}

EmulatedMatrix::EmulatedMatrix(MatrixState state, QObject* parent)
    : QObject(parent), m_state(std::move(state))
{
}

EmulatedMatrix::EmulatedMatrix(int sources, int destinations, int levels)
    : EmulatedMatrix(MatrixState::ofSize(sources, destinations, levels))
{
}

bool EmulatedMatrix::isLockedAgainst(ClientId client, int destination) const
{
    const auto owner = lockOwner(destination);
    return owner && owner != client;
}

bool EmulatedMatrix::setRoutes(const QList<Crosspoint>& routes)
{
    const bool allExist = std::ranges::all_of(routes, [this](const Crosspoint& route) {
        return hasLevel(route.level) && has(Side::Destination, route.destination)
            && (route.source == noSource || has(Side::Source, route.source));
    });
    if (!allExist)
        return false;

    QList<Crosspoint> changed;
    for (const auto& route : routes) {
        if (assign(m_state.routes[route.level][route.destination], route.source))
            changed << route;
    }
    if (!changed.isEmpty())
        emit routesChanged(changed);
    return true;
}

bool EmulatedMatrix::setLabels(const QList<LabelChange>& newLabels)
{
    if (!std::ranges::all_of(
            newLabels, [this](const LabelChange& label) { return has(label.side, label.index); }))
        return false;

    QList<LabelChange> changed;
    for (const auto& label : newLabels) {
        if (assign(labels(label.side)[label.index], label.text))
            changed << label;
    }
    if (!changed.isEmpty())
        emit labelsChanged(changed);
    return true;
}

bool EmulatedMatrix::setLocks(const QList<LockChange>& locks)
{
    if (!std::ranges::all_of(
            locks, [this](const LockChange& lock) { return has(Side::Destination, lock.destination); }))
        return false;

    QList<LockChange> changed;
    for (const auto& lock : locks) {
        if (assign(m_state.lockOwners[lock.destination], lock.owner))
            changed << lock;
    }
    if (!changed.isEmpty())
        emit locksChanged(changed);
    return true;
}

void EmulatedMatrix::replace(MatrixState state)
{
    m_state = std::move(state);
    emit replaced();
}

const QStringList& EmulatedMatrix::labels(Side side) const
{
    return side == Side::Source ? m_state.sourceLabels : m_state.destinationLabels;
}

QStringList& EmulatedMatrix::labels(Side side)
{
    return side == Side::Source ? m_state.sourceLabels : m_state.destinationLabels;
}

} // namespace corvane::emulator
