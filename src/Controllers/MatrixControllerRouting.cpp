#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"

namespace corvane {

using namespace Qt::StringLiterals;

void MatrixController::setTakeMode(TakeMode mode)
{
    const Change change(*this);
    if (std::exchange(m_operator.takeMode, mode) != mode)
        clearPending();
}

void MatrixController::setDirection(RoutingDirection direction)
{
    const Change change(*this);
    m_operator.routingDirection = direction;
    m_operator.selection.destinations.clear();
    m_operator.multiSelectMode = false;
    clearPending();
}

void MatrixController::setMultiSelectMode(bool isOn)
{
    const Change change(*this);
    if (std::exchange(m_operator.multiSelectMode, isOn) == isOn || isOn)
        return;
    m_operator.selection.destinations.clear();
    if (isConfirming())
        clearPending();
}

void MatrixController::setAim(const Aim& aim)
{
    const Change change(*this);
    m_operator.selection = aim.selection;
    m_operator.staging = aim.staging;
}

QList<qint64> MatrixController::activeLevels() const
{
    return routing::activeLevels(m_state.levels, m_operator.breakawayLevels);
}

QList<qint64> MatrixController::xyTargets() const
{
    return routing::targets(m_operator.selection);
}

std::optional<PendingTake> MatrixController::pendingTake() const
{
    return routing::pendingTake(m_operator.staging, m_operator.selection, m_operator.routingDirection);
}

bool MatrixController::hasStaging() const
{
    return routing::hasStaging(m_operator.staging);
}

bool MatrixController::allGanged() const
{
    const auto open = unlockedDestinations();
    return !open.isEmpty() && m_operator.selection.destinations == open;
}

bool MatrixController::allDestinationsStaged() const
{
    const auto open = unlockedDestinations();
    return !open.isEmpty() && m_operator.staging.destinations == open;
}

QList<qint64> MatrixController::lockedPendingDestinations() const
{
    auto staged = m_operator.staging.destinations;
    if (m_operator.staging.destination)
        staged.insert(*m_operator.staging.destination);
    return routing::ascending(staged & m_state.lockedDestinations);
}

QSet<qint64> MatrixController::unlockedDestinations() const
{
    return routing::unlocked(visibleDestinations(), m_state.lockedDestinations);
}

void MatrixController::clearPending()
{
    const Change change(*this);
    m_operator.staging = {};
}

void MatrixController::take(qint64 source, qint64 destination)
{
    if (refuseLocked({destination}).isEmpty())
        return;
    QList<Route> routes;
    for (const auto level : activeLevels())
        routes.append({level, destination, source});
    routeOptimistically(routes);
}

QList<qint64> MatrixController::refuseLocked(const QList<qint64>& destinations)
{
    const Change change(*this);
    QList<qint64> unlocked;
    for (const auto destination : destinations) {
        if (m_state.isLocked(destination))
            setLastError(lockMessage(destination));
        else
            unlocked.append(destination);
    }
    return unlocked;
}

QString MatrixController::lockMessage(qint64 destination) const
{
    // By position in the list, not by the port's index.
    const bool isInList = destination >= 0 && destination < m_state.destinations.size();
    return u"%1 is locked."_s.arg(isInList ? m_state.destinations.at(destination).label : u"Destination"_s);
}

void MatrixController::stageRoute(qint64 source, qint64 destination)
{
    const Change change(*this);
    if (!refuseLocked({destination}).isEmpty())
        m_operator.staging = routing::staged(source, {destination});
}

void MatrixController::routeOptimistically(const QList<Route>& routes)
{
    // Signals are emitted after the command has started, so that what an observer does reaches the router
    // after it.
    const Change change(*this);
    QList<Crosspoint> wanted;
    for (const auto& route : routes)
        wanted.append({route.level, route.destination, route.source});
    const auto before = writeTallies(wanted);
    startCommand([routes](RouterDriver& driver) { return driver.takeAll(routes); },
        [this, before](const QString& description) {
            // Whatever was routed since: the router's own reports correct the display.
            const Change rollback(*this);
            writeTallies(before);
            endFiring();
            setLastError(description);
        });
}

QList<Crosspoint> MatrixController::writeTallies(const QList<Crosspoint>& tallies)
{
    Change change(*this);
    QList<Crosspoint> before;
    for (const auto& tally : tallies) {
        before.append({tally.level, tally.destination, m_state.source(tally.destination, tally.level)});
        if (routing::write(m_state, tally))
            change.note([this, tally] { emit crosspointChanged(tally.level, tally.destination); });
    }
    return before;
}

void MatrixController::confirmTake()
{
    const auto staged = pendingTake();
    if (!staged)
        return;
    const Change change(*this);
    for (const auto destination : staged->destinations)
        take(staged->source, destination);
    clearPending();
}

void MatrixController::selectDestination(qint64 destination)
{
    if (!isConfirming())
        return;
    const Change change(*this);
    m_operator.staging = {.destination = destination, .source = {}, .destinations = {}};
}

void MatrixController::focusDestination(qint64 destination)
{
    if (m_operator.multiSelectMode && m_operator.routingDirection == RoutingDirection::destinationLed) {
        toggleDestinationInGang(destination);
        return;
    }
    const Change change(*this);
    m_operator.selection.destination = destination;
    m_operator.selection.destinations.clear();
    selectDestination(destination);
}

void MatrixController::toggleDestinationInGang(qint64 destination)
{
    if (m_operator.routingDirection != RoutingDirection::destinationLed)
        return;
    const Change change(*this);
    m_operator.selection = routing::toggledInGang(m_operator.selection, destination);
    if (!isConfirming())
        return;
    m_operator.staging.destination.reset();
    m_operator.staging.destinations.clear();
    // A staged source follows the gang.
    if (m_operator.staging.source)
        stageXY(*m_operator.staging.source);
}

void MatrixController::selectAllInGang()
{
    if (!m_operator.multiSelectMode)
        return;
    const Change change(*this);
    m_operator.selection.destinations = unlockedDestinations();
}

void MatrixController::deselectAllInGang()
{
    const Change change(*this);
    m_operator.selection.destinations.clear();
    m_operator.selection.destination.reset();
    if (isConfirming())
        clearPending();
}

void MatrixController::stageXY(qint64 source)
{
    const Change change(*this);
    if (const auto targets = refuseLocked(xyTargets()); !targets.isEmpty())
        m_operator.staging = routing::staged(source, targets);
}

void MatrixController::chooseSource(qint64 source)
{
    if (isConfirming()) {
        stageXY(source);
        return;
    }
    const Change change(*this);
    for (const auto destination : xyTargets())
        take(source, destination);
}

void MatrixController::focusSource(qint64 source)
{
    const Change change(*this);
    m_operator.selection.source = source;
    clearPending();
}

void MatrixController::assignDestination(qint64 destination)
{
    if (!m_operator.selection.source)
        return;
    if (!isConfirming()) {
        take(*m_operator.selection.source, destination);
        return;
    }
    const Change change(*this);
    if (!m_operator.staging.destinations.remove(destination) && !m_state.isLocked(destination))
        m_operator.staging.destinations.insert(destination);
}

void MatrixController::selectAllDestinations()
{
    if (m_operator.routingDirection != RoutingDirection::sourceLed || !m_operator.selection.source)
        return;
    const Change change(*this);
    setTakeMode(TakeMode::confirm);
    m_operator.staging = {.destination = {}, .source = {}, .destinations = unlockedDestinations()};
}

void MatrixController::toggleLock(qint64 destination)
{
    const Change change(*this);
    const bool wasLocked = m_state.isLocked(destination);
    setLocked(destination, !wasLocked);
    startCommand([destination, level = m_operator.primaryLevel, wasLocked](
                     RouterDriver& driver) { return driver.setLock(destination, level, !wasLocked); },
        [this, destination, wasLocked](const QString& description) {
            const Change rollback(*this);
            setLocked(destination, wasLocked);
            setLastError(description);
        });
}

void MatrixController::setLocked(qint64 destination, bool isLocked)
{
    if (m_state.isLocked(destination) == isLocked)
        return;
    Change change(*this);
    if (isLocked)
        m_state.lockedDestinations.insert(destination);
    else
        m_state.lockedDestinations.remove(destination);
    change.note([this, destination] { emit lockChanged(destination); });
}

} // namespace corvane
