#include "Controllers/ConnectionStore.h"

#include "Foundation/Task.h"
#include "Model/RouterModelsJson.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// For 15 seconds: after that the operator is at work, and the selection must not move.
constexpr int launchLooks = 75;
constexpr auto pauseBeforeALook = 200ms;

} // namespace

ConnectionStore::ConnectionStore(SerialQueue& mainQueue, DriverMaker makeDriver, const QString& folder)
    : m_mainQueue(mainQueue),
      m_makeDriver(std::move(makeDriver)),
      m_labels(folder),
      m_salvoStore(folder),
      m_panelStore(folder),
      m_file(folder + u"/connections.json"_s, u"ConnectionStore"_s, JsonFile::MovedAside::namesTheCopy),
      m_connections(loadConnections()),
      m_selectedConnectionID(firstID())
{
    const auto note = [this](const QString& fileName, const std::optional<QString>& error) {
        noteSave(fileName, error);
    };
    m_labels.onSaved(note);
    m_salvoStore.onSaved(note);
    m_panelStore.onSaved(note);
    m_file.onSaved(note);
}

QString ConnectionStore::saveProblem() const
{
    if (m_saveProblems.isEmpty() || m_isSaveProblemDismissed)
        return {};
    QStringList parts;
    for (auto problem = m_saveProblems.cbegin(); problem != m_saveProblems.cend(); ++problem)
        parts.append(u"%1 (%2)"_s.arg(problem.key(), problem.value()));
    return u"Not saved: "_s + parts.join(u", "_s);
}

void ConnectionStore::dismissSaveProblem()
{
    Q_ASSERT(m_mainQueue.isCurrent());
    if (saveProblem().isEmpty())
        return;
    m_isSaveProblemDismissed = true;
    emit saveProblemChanged();
}

void ConnectionStore::noteSave(const QString& fileName, const std::optional<QString>& error)
{
    const auto before = saveProblem();
    if (!error) {
        m_saveProblems.remove(fileName);
    } else if (!m_saveProblems.contains(fileName)) {
        m_saveProblems.insert(fileName, *error);
        m_isSaveProblemDismissed = false;
    }
    if (saveProblem() != before)
        emit saveProblemChanged();
}

void ConnectionStore::setConnections(const QList<RouterConnection>& connections)
{
    Q_ASSERT(m_mainQueue.isCurrent());
    if (m_connections == connections)
        return;
    m_connections = connections;
    emit connectionsChanged();
}

void ConnectionStore::setSelectedConnectionID(std::optional<QUuid> id)
{
    Q_ASSERT(m_mainQueue.isCurrent());
    if (std::exchange(m_selectedConnectionID, id) != id)
        emit selectedConnectionIDChanged();
}

std::optional<RouterConnection> ConnectionStore::selectedConnection() const
{
    return m_selectedConnectionID ? connection(*m_selectedConnectionID) : std::nullopt;
}

MatrixController& ConnectionStore::controller(const RouterConnection& connection)
{
    Q_ASSERT(m_mainQueue.isCurrent());
    auto& controller = m_controllers[connection.id];
    if (!controller)
        controller = std::make_shared<MatrixController>(connection,
            MatrixController::Environment{m_mainQueue, m_makeDriver, m_labels, m_salvoStore, m_panelStore});
    return *controller;
}

void ConnectionStore::add(const RouterConnection& connection, Persist persist)
{
    Q_ASSERT(m_mainQueue.isCurrent());
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
    Q_ASSERT(m_mainQueue.isCurrent());
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
    Q_ASSERT(m_mainQueue.isCurrent());
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
    // A copy, because an observer of the connecting may change the list.
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

/// Selects the first router that is up; true ends the search.
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

/// Returns whether there was one.
bool ConnectionStore::dropController(const QUuid& id)
{
    const auto controller = m_controllers.value(id);
    if (!controller)
        return false;
    // Removed only after its last signals: an observer that asks for the router's controller then must not
    // get a new one, made from the old record.
    controller->disconnect();
    if (m_controllers.value(id) == controller)
        m_controllers.remove(id);
    // Deleted on a later turn, because one of its signals may be in progress.
    m_mainQueue.async([controller] {});
    return true;
}

} // namespace corvane
