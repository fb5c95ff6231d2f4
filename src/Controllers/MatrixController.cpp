#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Foundation/Task.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"

#include <algorithm>

namespace corvane {

MatrixController::MatrixController(RouterConnection connection, const Environment& environment)
    : m_connection(std::move(connection)),
      m_environment(environment),
      m_storeKey(idText(m_connection.id)),
      m_state(RouterState::empty(m_connection))
{
    m_now.salvos = environment.salvoStore.byConnection().value(m_storeKey);
    m_now.panels = environment.panelStore.panels(m_connection.id);
    if (const auto stored = panel(environment.panelStore.activePanelID(m_connection.id)))
        m_now.activePanelID = stored->id;
    refreshPanelPorts();
}

MatrixController::~MatrixController() = default;

void MatrixController::connect()
{
    const Change change(*this);
    teardown();
    m_driver = m_environment.makeDriver(m_connection);
    m_now.status = Connecting{};
    m_now.lastError.reset();
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
    // Tells it a second time, which a driver must bear: this way it has heard it whatever became of the
    // first.
    teardown();
    m_now.status = Disconnected{};
    m_now.statusMessage.clear();
}

void MatrixController::teardown()
{
    m_eventStop.request_stop();
    tellDriverToDisconnect();
    m_driver.reset();
    m_now.readingProgress.reset();
    clearPending();
}

void MatrixController::setReadingProgress(std::optional<double> fraction)
{
    const Change change(*this);
    m_now.readingProgress = fraction;
}

void MatrixController::tellDriverToDisconnect()
{
    if (m_driver)
        startTask(m_environment.mainQueue, [driver = m_driver] { return driver->disconnect(); });
}

void MatrixController::send(Command command, FailureHandler onFailure)
{
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
    if (found != m_state.levels.cend())
        return found->name;
    // Counted without the sign, for the largest index has no successor.
    return QStringLiteral("L%1").arg(static_cast<qint64>(static_cast<quint64>(level) + 1));
}

void MatrixController::setLastError(std::optional<QString> message)
{
    const Change change(*this);
    m_now.lastError = std::move(message);
}

void MatrixController::setViewMode(RouteViewMode mode)
{
    const Change change(*this);
    m_now.viewMode = mode;
}

void MatrixController::setPrimaryLevel(qint64 level)
{
    const Change change(*this);
    m_now.primaryLevel = level;
}

void MatrixController::setBreakawayLevels(const QSet<qint64>& levels)
{
    const Change change(*this);
    m_now.breakawayLevels = levels;
}

void MatrixController::setPendingDestination(std::optional<qint64> destination)
{
    const Change change(*this);
    m_now.staging.destination = destination;
}

void MatrixController::setPendingSource(std::optional<qint64> source)
{
    const Change change(*this);
    m_now.staging.source = source;
}

void MatrixController::setPendingDestinations(const QSet<qint64>& destinations)
{
    const Change change(*this);
    m_now.staging.destinations = destinations;
}

} // namespace corvane
