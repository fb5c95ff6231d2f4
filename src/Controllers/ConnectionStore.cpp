#include "Controllers/ConnectionStore.h"

#include "Foundation/Task.h"
#include "Model/RouterModelsJson.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace corvane {

using namespace std::chrono_literals;

namespace {

// Looks for 15 seconds: what is not up by then may come up when the operator is long at work.
constexpr int launchLooks = 75;
constexpr auto pauseBeforeALook = 200ms;

} // namespace

ConnectionStore::ConnectionStore(SerialQueue& mainQueue, DriverMaker makeDriver, const QString& folder)
    : m_mainQueue(mainQueue),
      m_makeDriver(std::move(makeDriver)),
      m_labels(folder),
      m_salvoStore(folder),
      m_panelStore(folder),
      m_file(folder + QStringLiteral("/connections.json"), QStringLiteral("ConnectionStore"),
          JsonFile::MovedAside::namesTheCopy),
      m_connections(loadConnections()),
      m_selectedConnectionID(firstID())
{
}

void ConnectionStore::setConnections(const QList<RouterConnection>& connections)
{
    if (m_connections == connections)
        return;
    m_connections = connections;
    emit connectionsChanged();
}

void ConnectionStore::setSelectedConnectionID(std::optional<QUuid> id)
{
    if (std::exchange(m_selectedConnectionID, id) != id)
        emit selectedConnectionIDChanged();
}

std::optional<RouterConnection> ConnectionStore::selectedConnection() const
{
    return m_selectedConnectionID ? connection(*m_selectedConnectionID) : std::nullopt;
}

MatrixController& ConnectionStore::controller(const RouterConnection& connection)
{
    auto& controller = m_controllers[connection.id];
    if (!controller)
        controller = std::make_shared<MatrixController>(connection,
            MatrixController::Environment{m_mainQueue, m_makeDriver, m_labels, m_salvoStore, m_panelStore});
    return *controller;
}

void ConnectionStore::add(const RouterConnection& connection, Persist persist)
{
    m_connections.append(connection);
    if (persist == Persist::yes)
        save();
    else
        m_ephemeralIDs.insert(connection.id);
    const bool isNewlySelected = std::exchange(m_selectedConnectionID, connection.id) != connection.id;
    emit connectionsChanged();
    if (isNewlySelected)
        emit selectedConnectionIDChanged();
}

void ConnectionStore::update(const RouterConnection& connection)
{
    const auto place = std::ranges::find(m_connections, connection.id, &RouterConnection::id);
    if (place == m_connections.end())
        return;
    const auto id = connection.id;
    m_autoSelect.request_stop();
    *place = connection;
    const bool hadController = dropController(id);
    save();
    emit connectionsChanged();
    if (hadController)
        emit controllerReplaced(id);
}

void ConnectionStore::remove(const RouterConnection& connection)
{
    // The argument may be an element of our own list.
    const auto id = connection.id;
    m_autoSelect.request_stop();
    dropController(id);
    m_labels.removeConnection(id);
    m_salvoStore.removeConnection(id);
    m_panelStore.removeConnection(id);
    m_ephemeralIDs.remove(id);
    m_connections.removeIf([&](const RouterConnection& each) { return each.id == id; });
    const bool wasSelected = m_selectedConnectionID == id;
    if (wasSelected)
        m_selectedConnectionID = firstID();
    save();
    emit connectionsChanged();
    if (wasSelected)
        emit selectedConnectionIDChanged();
}

void ConnectionStore::save() const
{
    m_file.save([this](JsonWriter& writer) {
        writer.beginArray();
        for (const auto& connection : m_connections) {
            if (!m_ephemeralIDs.contains(connection.id))
                writeJson(writer, connection);
        }
        writer.endArray();
    });
}

void ConnectionStore::autoConnectOnLaunch()
{
    if (std::exchange(m_didRunLaunchConnect, true))
        return;
    QList<QUuid> routers;
    // A copy, for what connecting sets off may change the list.
    for (const auto connections = m_connections; const auto& connection : connections) {
        if (connection.vendor == RouterVendor::simulator)
            continue;
        routers.append(connection.id);
        if (auto& its = controller(connection); std::holds_alternative<Disconnected>(its.status()))
            its.connect();
    }
    if (!routers.isEmpty())
        startAutoSelect(routers);
}

void ConnectionStore::startAutoSelect(const QList<QUuid>& routers)
{
    m_autoSelect.request_stop();
    m_autoSelect = std::stop_source();
    startTask(m_mainQueue,
        [self = QPointer(this), &queue = m_mainQueue, stop = m_autoSelect.get_token(), routers,
            launchSelection = m_selectedConnectionID]() -> QCoro::Task<> {
            for (int look = 0; look < launchLooks; ++look) {
                co_await sleepFor(queue, pauseBeforeALook, stop);
                if (stop.stop_requested() || !self || self->isAutoSelectOver(launchSelection, routers))
                    co_return;
            }
        });
}

/// One look at the routers; selects the first that is up.
bool ConnectionStore::isAutoSelectOver(std::optional<QUuid> launchSelection, const QList<QUuid>& routers)
{
    if (m_selectedConnectionID != launchSelection)
        return true;
    const auto isUp = [this](const QUuid& id) {
        const auto current = connection(id);
        return current && controller(*current).isConnected();
    };
    const auto found = std::ranges::find_if(routers, isUp);
    if (found == routers.cend())
        return false;
    setSelectedConnectionID(*found);
    return true;
}

QList<RouterConnection> ConnectionStore::loadConnections() const
{
    QList<RouterConnection> connections;
    const auto outcome = m_file.load([&](const QByteArray& bytes) {
        QList<RouterConnection> read;
        readJsonArray(bytes, [&](const JsonValue& json) { read.append(routerConnectionFromJson(json)); });
        connections = read;
    });
    return outcome == JsonFile::Loaded::missing ? sampleRouters() : connections;
}

std::optional<RouterConnection> ConnectionStore::connection(const QUuid& id) const
{
    const auto found = std::ranges::find(m_connections, id, &RouterConnection::id);
    return found == m_connections.end() ? std::nullopt : std::optional(*found);
}

std::optional<QUuid> ConnectionStore::firstID() const
{
    return m_connections.isEmpty() ? std::nullopt : std::optional(m_connections.front().id);
}

/// Whether there was one.
bool ConnectionStore::dropController(const QUuid& id)
{
    const auto controller = m_controllers.value(id);
    if (!controller)
        return false;
    // Still the router's controller while it tells of its end: whoever asks for it upon that must not be
    // given a new one, made from a record on its way out.
    controller->disconnect();
    if (m_controllers.value(id) == controller)
        m_controllers.remove(id);
    // Whoever is being told something by it right now gets to finish.
    m_mainQueue.async([controller] {});
    return true;
}

} // namespace corvane
