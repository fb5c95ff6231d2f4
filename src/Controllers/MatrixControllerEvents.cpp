#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"

#include <algorithm>

namespace corvane {

namespace {

/// A focus that no port has any more moves to the first port.
std::optional<qint64> fittedFocus(std::optional<qint64> focus, const QList<Port>& ports)
{
    if (focus && std::ranges::find(ports, *focus, &Port::index) != ports.cend())
        return focus;
    return ports.isEmpty() ? std::nullopt : std::optional(ports.first().index);
}

} // namespace

void MatrixController::apply(RouterDriverEvent&& event)
{
    Q_ASSERT(m_environment.mainQueue.isCurrent());
    std::visit([this](auto&& fact) { handle(std::forward<decltype(fact)>(fact)); }, std::move(event));
}

void MatrixController::handle(driverEvent::Status&& event)
{
    const Change change(*this);
    m_now.statusMessage = event.text;
}

void MatrixController::handle(driverEvent::Connected&& event)
{
    adopt(std::move(event.state));
}

void MatrixController::handle(driverEvent::StateReplaced&& event)
{
    adopt(std::move(event.state));
}

// The four single facts below arrive by the thousand: each touches its own entry, and tells of it alone.

void MatrixController::handle(driverEvent::RouteChanged&& event)
{
    if (routing::write(m_state, {event.level, event.destination, event.source}))
        emit crosspointChanged(event.level, event.destination);
}

void MatrixController::handle(driverEvent::LabelChanged&& event)
{
    learnDeviceLabel(event.kind, event.index, event.label);
}

void MatrixController::handle(driverEvent::LockChanged&& event)
{
    setLocked(event.destination, event.locked);
}

void MatrixController::handle(driverEvent::InputStatusChanged&& event)
{
    const auto known = m_state.inputStatus.constFind(event.input);
    const bool isKnown = known != m_state.inputStatus.constEnd();
    if (event.status ? isKnown && *known == *event.status : !isKnown)
        return;
    if (event.status)
        m_state.inputStatus.insert(event.input, *event.status);
    else
        m_state.inputStatus.remove(event.input);
    emit inputStatusChanged(event.input);
}

void MatrixController::handle(driverEvent::Disconnected&& event)
{
    const Change change(*this);
    m_now.status = Disconnected{};
    if (event.reason)
        m_now.statusMessage = *event.reason;
}

void MatrixController::handle(driverEvent::Error&& event)
{
    const Change change(*this);
    m_now.lastError = event.message;
    m_now.status = ConnectionFailed{event.message};
    m_now.statusMessage.clear();
}

void MatrixController::handle(driverEvent::CommandRefused&& event)
{
    setLastError(event.message);
}

void MatrixController::adopt(RouterState&& newState)
{
    Change change(*this);
    const auto oldState = std::exchange(m_state, std::move(newState));
    m_now.status = Connected{};
    m_now.lastError.reset();
    m_now.statusMessage.clear();
    // Captured before the custom names cover them.
    m_deviceLabels = deviceLabels(m_state);
    layAllLabels();
    refreshPanelPorts();
    fitToState();
    pruneSelectionsToVisible();
    if (m_state != oldState)
        change.note([this] { emit stateReplaced(); });
}

/// Destinations in the gang or staged as several are left to `pruneSelectionsToVisible`, for what the router
/// doesn't have is not visible. What is staged as one stays: only `clearPending` drops it.
void MatrixController::fitToState()
{
    QSet<qint64> levels;
    for (const auto& level : std::as_const(m_state.levels))
        levels.insert(level.index);
    m_now.breakawayLevels.intersect(levels);
    if (!levels.contains(m_now.primaryLevel))
        m_now.primaryLevel = levels.isEmpty() ? 0 : m_state.levels.constFirst().index;

    m_now.selection.destination = fittedFocus(m_now.selection.destination, m_state.destinations);
    m_now.selection.source = fittedFocus(m_now.selection.source, m_state.sources);
}

} // namespace corvane
