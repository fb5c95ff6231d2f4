#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Model/Naming.h"

#include <algorithm>

namespace corvane {

namespace {

/// The focus, or the first port if the focused one is gone.
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
    m_observed.statusMessage = event.text;
}

void MatrixController::handle(driverEvent::Connected&& event)
{
    adopt(std::move(event.state));
}

void MatrixController::handle(driverEvent::StateReplaced&& event)
{
    adopt(std::move(event.state));
}

// The four single facts below arrive by the thousand: each costs one entry and one signal. Facts about ports
// that the router does not have are dropped, or memory would follow whatever a device sends.

void MatrixController::handle(driverEvent::RouteChanged&& event)
{
    if (!hasCrosspoint(event.level, event.destination))
        return;
    if (m_firing)
        noteFiring(m_firing->confirm(Crosspoint{event.level, event.destination, event.source}));
    if (routing::write(m_state, {event.level, event.destination, event.source}))
        emit crosspointChanged(event.level, event.destination);
}

void MatrixController::handle(driverEvent::LabelChanged&& event)
{
    if (!hasPort(event.kind, event.index))
        return;
    auto& names = event.kind == PortKind::source ? m_deviceLabels.sources : m_deviceLabels.destinations;
    names.insert(event.index, naming::kept(event.label));
    m_reportedLabels.insert({event.kind, event.index});
    if (m_reportedLabels.size() > 1)
        return;
    // Together on the next turn, because each change of a label recomputes what is on screen.
    m_environment.mainQueue.async([weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->applyReportedLabels();
    });
}

void MatrixController::handle(driverEvent::LockChanged&& event)
{
    if (hasPort(PortKind::destination, event.destination))
        setLocked(event.destination, event.locked);
}

void MatrixController::handle(driverEvent::InputStatusChanged&& event)
{
    if (!hasPort(PortKind::source, event.input))
        return;
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
    m_observed.status = Disconnected{};
    endFiring();
    if (!event.reason)
        return;
    m_observed.statusMessage = *event.reason;
    if (m_observed.connectionFailure.isEmpty())
        m_observed.connectionFailure = *event.reason;
}

void MatrixController::handle(driverEvent::Error&& event)
{
    const Change change(*this);
    m_observed.lastError = event.message;
    m_observed.status = ConnectionFailed{event.message};
    endFiring();
    m_observed.connectionFailure = event.message;
    m_observed.statusMessage.clear();
}

void MatrixController::handle(driverEvent::CommandRefused&& event)
{
    setLastError(event.message);
}

bool MatrixController::hasPort(PortKind kind, qint64 index) const
{
    return (kind == PortKind::source ? m_deviceLabels.sources : m_deviceLabels.destinations).contains(index);
}

bool MatrixController::hasCrosspoint(qint64 level, qint64 destination) const
{
    return hasPort(PortKind::destination, destination)
        && std::ranges::find(m_state.levels, level, &RouterLevel::index) != m_state.levels.cend();
}

void MatrixController::adopt(RouterState&& newState)
{
    Change change(*this);
    const auto oldState = std::exchange(m_state, std::move(newState));
    m_observed.status = Connected{};
    m_observed.lastError.reset();
    m_observed.statusMessage.clear();
    m_observed.connectionFailure.clear();
    // Captured before the custom labels replace them.
    m_deviceLabels = deviceLabels(m_state);
    m_reportedLabels.clear();
    applyAllLabels();
    refreshPanelPorts();
    fitToState();
    pruneSelectionsToVisible();
    if (m_state != oldState)
        change.note([this] { emit stateReplaced(); });
    if (m_firing)
        noteFiring(m_firing->confirm(m_state));
}

/// Destinations in the gang or staged as several are left to `pruneSelectionsToVisible`, because what the
/// router does not have is not visible. What is staged as one stays: only `clearPending` drops it.
void MatrixController::fitToState()
{
    QSet<qint64> levels;
    for (const auto& level : std::as_const(m_state.levels))
        levels.insert(level.index);
    m_operator.breakawayLevels.intersect(levels);
    if (!levels.contains(m_operator.primaryLevel))
        m_operator.primaryLevel = levels.isEmpty() ? 0 : m_state.levels.constFirst().index;

    m_operator.selection.destination = fittedFocus(m_operator.selection.destination, m_state.destinations);
    m_operator.selection.source = fittedFocus(m_operator.selection.source, m_state.sources);
}

} // namespace corvane
