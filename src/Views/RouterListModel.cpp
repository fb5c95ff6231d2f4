#include "Views/RouterListModel.h"

#include "Theme/Tints.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

QStringList commandNames(const QList<RouterCommand>& commands)
{
    QStringList names;
    for (const auto& command : commands)
        names.append(command.text);
    return names;
}

} // namespace

RouterListModel::RouterListModel(ConnectionStore& store, const GlassKit& theme, QObject* parent)
    : QAbstractListModel(parent), m_store(store), m_theme(theme)
{
    connect(&store, &ConnectionStore::connectionsChanged, this, &RouterListModel::reload);
    connect(&store, &ConnectionStore::selectedConnectionIDChanged, this, &RouterListModel::updateSelectedRow);
    connect(&theme, &GlassKit::paletteChanged, this, &RouterListModel::tellOfAllRows);
    reload();
}

int RouterListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant RouterListModel::data(const QModelIndex& index, int role) const
{
    if (!contains(index.row()))
        return {};
    const auto& connection = m_rows.at(index.row()).connection;
    switch (role) {
    case Qt::DisplayRole:
    case nameRole:
        return connection.name;
    case endpointRole:
        return connection.endpointDescription();
    case symbolRole:
        return symbolName(connection.vendor);
    case tintRole:
        return routerColor(connection, m_theme.palette());
    case statusRole:
        return QVariant::fromValue(statusLook(m_rows.at(index.row()).status(), m_theme.palette()));
    case commandNamesRole:
        return commandNames(commands(index.row()));
    default:
        return {};
    }
}

QHash<int, QByteArray> RouterListModel::roleNames() const
{
    return {{nameRole, "name"}, {endpointRole, "endpoint"}, {symbolRole, "symbol"}, {tintRole, "tint"},
        {statusRole, "status"}, {commandNamesRole, "commandNames"}};
}

void RouterListModel::select(int row)
{
    if (contains(row))
        m_store.setSelectedConnectionID(m_rows.at(row).connection.id);
}

std::optional<RouterConnection> RouterListModel::router(int row) const
{
    return contains(row) ? std::optional(m_rows.at(row).connection) : std::nullopt;
}

int RouterListModel::rowOf(const QUuid& id) const
{
    const auto found = std::ranges::find(m_rows, id, &Row::id);
    return found == m_rows.cend() ? -1 : static_cast<int>(found - m_rows.cbegin());
}

QList<RouterCommand> RouterListModel::commands(int row) const
{
    if (!contains(row))
        return {};
    return routerCommands(m_rows.at(row).connection.id, m_rows.at(row).status());
}

ConnectionStatus RouterListModel::Row::status() const
{
    return controller ? controller->status() : Disconnected{};
}

void RouterListModel::reload()
{
    // A copy, for whoever is told of a row may change the list.
    const auto connections = m_store.connections();
    removeAllBut(connections);
    adopt(connections);
    observeRows();
    updateSelectedRow();
}

void RouterListModel::removeAllBut(const QList<RouterConnection>& connections)
{
    QSet<QUuid> kept;
    for (const auto& connection : connections)
        kept.insert(connection.id);
    for (int row = count() - 1; row >= 0; --row) {
        if (kept.contains(m_rows.at(row).id()))
            continue;
        beginRemoveRows({}, row, row);
        m_rows.removeAt(row);
        endRemoveRows();
    }
}

void RouterListModel::adopt(const QList<RouterConnection>& connections)
{
    QList<Row> rows;
    for (const auto& connection : connections)
        rows.append({connection, &m_store.controller(connection)});
    const int known = count();
    if (!std::ranges::equal(
            m_rows, rows.first(std::min(m_rows.size(), rows.size())), {}, &Row::id, &Row::id)) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
        return;
    }
    for (int row = 0; row < known; ++row)
        if (std::exchange(m_rows[row], rows.at(row)) != rows.at(row))
            emit dataChanged(index(row), index(row));
    if (rows.size() == known)
        return;
    beginInsertRows({}, known, static_cast<int>(rows.size()) - 1);
    m_rows = rows;
    endInsertRows();
}

void RouterListModel::observeRows()
{
    m_observation = std::make_unique<QObject>();
    for (int row = 0; row < count(); ++row) {
        connect(
            m_rows.at(row).controller, &MatrixController::statusChanged, m_observation.get(), [this, row] {
                emit dataChanged(index(row), index(row), {statusRole, commandNamesRole});
            });
    }
}

void RouterListModel::tellOfAllRows()
{
    if (!m_rows.isEmpty())
        emit dataChanged(index(0), index(count() - 1));
}

void RouterListModel::updateSelectedRow()
{
    const auto id = m_store.selectedConnectionID();
    const int row = id ? rowOf(*id) : -1;
    if (row == m_selectedRow)
        return;
    m_selectedRow = row;
    emit selectedRowChanged();
}

} // namespace corvane
