#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Foundation/Task.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

/// Counted from 1 as operators do; without the sign, for the largest number has no successor.
QString numbered(const QString& what, qint64 index)
{
    return what.arg(static_cast<qint64>(static_cast<quint64>(index) + 1));
}

QString labelAt(const QList<Port>& ports, qint64 position, const QString& otherwise)
{
    return position >= 0 && position < ports.size() ? ports.at(position).label
                                                    : numbered(otherwise, position);
}

} // namespace

MatrixController::MatrixController(RouterConnection connection, const Environment& environment)
    : m_connection(std::move(connection)),
      m_environment(environment),
      m_storeKey(idText(m_connection.id)),
      m_state(RouterState::empty(m_connection)),
      m_firingSilence(environment.mainQueue, 12s, [this] { endFiring(); })
{
    m_observed.salvos = environment.salvoStore.byConnection().value(m_storeKey);
    m_observed.panels = environment.panelStore.panels(m_connection.id);
    if (const auto stored = panel(environment.panelStore.activePanelID(m_connection.id)))
        m_activePanelID = stored->id;
    refreshPanelPorts();
}

MatrixController::~MatrixController() = default;

void MatrixController::connect()
{
    const Change change(*this);
    teardown();
    m_driver = m_environment.makeDriver(m_connection);
    m_observed.status = Connecting{};
    m_observed.lastError.reset();
    m_eventStop = std::stop_source();
    m_driver->events().consume(m_environment.mainQueue, m_eventStop.get_token(),
        [weak = weak_from_this()](RouterDriverEvent&& event) {
            if (const auto self = weak.lock())
                self->apply(std::move(event));
        });
    m_driver->onReadingProgress(
        [weak = weak_from_this(), stop = m_eventStop.get_token()](std::optional<double> fraction) {
            const auto self = weak.lock();
            if (self && !stop.stop_requested())
                self->setReadingProgress(fraction);
        });
    startTask(m_environment.mainQueue, [driver = m_driver] { return driver->connect(); });
}

void MatrixController::disconnect()
{
    const Change change(*this);
    tellDriverToDisconnect();
    // Tells it a second time, which every driver must allow.
    teardown();
    m_observed.status = Disconnected{};
    m_observed.statusMessage.clear();
}

void MatrixController::teardown()
{
    m_eventStop.request_stop();
    tellDriverToDisconnect();
    m_driver.reset();
    m_observed.readingProgress.reset();
    m_observed.connectionFailure.clear();
    endFiring();
    clearPending();
}

void MatrixController::setReadingProgress(std::optional<double> fraction)
{
    const Change change(*this);
    m_observed.readingProgress = fraction;
}

void MatrixController::tellDriverToDisconnect()
{
    if (m_driver)
        startTask(m_environment.mainQueue, [driver = m_driver] { return driver->disconnect(); });
}

void MatrixController::startCommand(Command command, FailureHandler onFailure)
{
    Q_ASSERT(m_environment.mainQueue.isCurrent());
    if (!m_driver)
        return;
    startTask(m_environment.mainQueue,
        [self = shared_from_this(), driver = m_driver, command = std::move(command),
            onFailure = std::move(onFailure)]() -> QCoro::Task<> {
            try {
                co_await command(*driver);
            } catch (const DriverError& error) {
                onFailure(error.errorDescription());
            } catch (const std::exception& error) {
                onFailure(QString::fromUtf8(error.what()));
            }
        });
}

QString MatrixController::levelName(qint64 level) const
{
    const auto found = std::ranges::find(m_state.levels, level, &RouterLevel::index);
    return found != m_state.levels.cend() ? found->name : numbered(u"L%1"_s, level);
}

QString MatrixController::destinationLabel(qint64 destination) const
{
    return labelAt(m_state.destinations, destination, u"Dest %1"_s);
}

QString MatrixController::sourceLabel(qint64 source) const
{
    return labelAt(m_state.sources, source, u"Src %1"_s);
}

void MatrixController::setLastError(std::optional<QString> message)
{
    const Change change(*this);
    m_observed.lastError = std::move(message);
}

void MatrixController::setViewMode(RouteViewMode mode)
{
    const Change change(*this);
    m_operator.viewMode = mode;
}

void MatrixController::setPrimaryLevel(qint64 level)
{
    const Change change(*this);
    m_operator.primaryLevel = level;
}

void MatrixController::setBreakawayLevels(const QSet<qint64>& levels)
{
    const Change change(*this);
    m_operator.breakawayLevels = levels;
}

void MatrixController::setPendingDestination(std::optional<qint64> destination)
{
    const Change change(*this);
    m_operator.staging.destination = destination;
}

void MatrixController::setPendingSource(std::optional<qint64> source)
{
    const Change change(*this);
    m_operator.staging.source = source;
}

void MatrixController::setPendingDestinations(const QSet<qint64>& destinations)
{
    const Change change(*this);
    m_operator.staging.destinations = destinations;
}

} // namespace corvane
