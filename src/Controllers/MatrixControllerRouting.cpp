#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"

namespace corvane {

void MatrixController::setTakeMode(TakeMode mode)
{
    const Change change(*this);
    if (std::exchange(m_now.takeMode, mode) != mode)
        clearPending();
}

void MatrixController::setDirection(RoutingDirection direction)
{
    const Change change(*this);
    m_now.routingDirection = direction;
    m_now.selection.destinations.clear();
    m_now.multiSelectMode = false;
    clearPending();
}

void MatrixController::setMultiSelectMode(bool isOn)
{
    const Change change(*this);
    if (std::exchange(m_now.multiSelectMode, isOn) == isOn || isOn)
        return;
    m_now.selection.destinations.clear();
    if (isConfirming())
        clearPending();
}

QList<qint64> MatrixController::activeLevels() const
{
    return routing::activeLevels(m_state.levels, m_now.breakawayLevels);
}

QList<qint64> MatrixController::xyTargets() const
{
    return routing::targets(m_now.selection);
}

bool MatrixController::isXYTarget(qint64 destination) const
{
    return routing::isTarget(m_now.selection, destination);
}

std::optional<PendingTake> MatrixController::pendingTake() const
{
    return routing::pendingTake(m_now.staging, m_now.selection, m_now.routingDirection);
}

bool MatrixController::hasStaging() const
{
    return routing::hasStaging(m_now.staging);
}

bool MatrixController::allGanged() const
{
    const auto open = unlockedDestinations();
    return !open.isEmpty() && m_now.selection.destinations == open;
}

bool MatrixController::allDestinationsStaged() const
{
    const auto open = unlockedDestinations();
    return !open.isEmpty() && m_now.staging.destinations == open;
}

QSet<qint64> MatrixController::unlockedDestinations() const
{
    return routing::unlocked(visibleDestinations(), m_state.lockedDestinations);
}

void MatrixController::clearPending()
{
    const Change change(*this);
    m_now.staging = {};
}

void MatrixController::take(qint64 source, qint64 destination)
{
    if (m_state.isLocked(destination)) {
        setLastError(QStringLiteral("%1 is locked.").arg(nameForLockMessage(destination)));
        return;
    }
    QList<Route> routes;
    for (const auto level : activeLevels())
        routes.append({level, destination, source});
    sendRoutes(routes);
}

/// By position and not by index, as operators have always read it.
QString MatrixController::nameForLockMessage(qint64 destination) const
{
    if (destination < 0 || destination >= m_state.destinations.size())
        return QStringLiteral("Destination");
    return m_state.destinations.at(destination).label;
}

void MatrixController::sendRoutes(const QList<Route>& routes)
{
    // What an observer does upon the new tallies must reach the router after them.
    const Change change(*this);
    QList<Crosspoint> wanted;
    for (const auto& route : routes)
        wanted.append({route.level, route.destination, route.source});
    const auto before = writeTallies(wanted);
    send([routes](RouterDriver& driver) { return driver.takeAll(routes); },
        [this, before](const QString& description) {
            // Regardless of what was routed since: the router's own reports put the display right.
            const Change rollback(*this);
            writeTallies(before);
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
    m_now.staging = {.destination = destination, .source = {}, .destinations = {}};
}

void MatrixController::focusDestination(qint64 destination)
{
    if (m_now.multiSelectMode && m_now.routingDirection == RoutingDirection::destinationLed) {
        toggleDestinationInGang(destination);
        return;
    }
    const Change change(*this);
    m_now.selection.destination = destination;
    m_now.selection.destinations.clear();
    selectDestination(destination);
}

void MatrixController::toggleDestinationInGang(qint64 destination)
{
    if (m_now.routingDirection != RoutingDirection::destinationLed)
        return;
    const Change change(*this);
    m_now.selection = routing::toggledInGang(m_now.selection, destination);
    if (!isConfirming())
        return;
    m_now.staging.destination.reset();
    m_now.staging.destinations.clear();
    // A staged source follows the gang.
    if (m_now.staging.source)
        stageXY(*m_now.staging.source);
}

void MatrixController::selectAllInGang()
{
    if (!m_now.multiSelectMode)
        return;
    const Change change(*this);
    m_now.selection.destinations = unlockedDestinations();
}

void MatrixController::deselectAllInGang()
{
    const Change change(*this);
    m_now.selection.destinations.clear();
    m_now.selection.destination.reset();
    if (isConfirming())
        clearPending();
}

void MatrixController::stageXY(qint64 source)
{
    const auto targets = xyTargets();
    if (targets.isEmpty())
        return;
    const Change change(*this);
    m_now.staging = routing::staged(source, targets);
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
    m_now.selection.source = source;
    clearPending();
}

void MatrixController::assignDestination(qint64 destination)
{
    if (!m_now.selection.source)
        return;
    if (!isConfirming()) {
        take(*m_now.selection.source, destination);
        return;
    }
    const Change change(*this);
    if (!m_now.staging.destinations.remove(destination) && !m_state.isLocked(destination))
        m_now.staging.destinations.insert(destination);
}

void MatrixController::selectAllDestinations()
{
    if (m_now.routingDirection != RoutingDirection::sourceLed || !m_now.selection.source)
        return;
    const Change change(*this);
    setTakeMode(TakeMode::confirm);
    m_now.staging = {.destination = {}, .source = {}, .destinations = unlockedDestinations()};
}

void MatrixController::toggleLock(qint64 destination)
{
    const Change change(*this);
    const bool wasLocked = m_state.isLocked(destination);
    setLocked(destination, !wasLocked);
    send([destination, level = m_now.primaryLevel, wasLocked](
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
