#include "Views/RouterListModel.h"

#include "Theme/Tints.h"

namespace corvane {

namespace {

QList<QUuid> ids(const QList<RouterConnection>& connections)
{
    QList<QUuid> ids;
    for (const auto& connection : connections)
        ids.append(connection.id);
    return ids;
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
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant RouterListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const auto& connection = m_rows.at(index.row());
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
        return QVariant::fromValue(statusLook(m_store.controller(connection).status(), m_theme.palette()));
    default:
        return {};
    }
}

QHash<int, QByteArray> RouterListModel::roleNames() const
{
    return {{nameRole, "name"}, {endpointRole, "endpoint"}, {symbolRole, "symbol"}, {tintRole, "tint"},
        {statusRole, "status"}};
}

void RouterListModel::select(int row)
{
    if (row >= 0 && row < m_rows.size())
        m_store.setSelectedConnectionID(m_rows.at(row).id);
}

void RouterListModel::reload()
{
    const auto& rows = m_store.connections();
    if (ids(rows) == ids(m_rows)) {
        m_rows = rows;
        tellOfAllRows();
    } else {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    }
    observeRows();
    updateSelectedRow();
}

void RouterListModel::observeRows()
{
    m_observation = std::make_unique<QObject>();
    for (int row = 0; row < m_rows.size(); ++row) {
        connect(&m_store.controller(m_rows.at(row)), &MatrixController::statusChanged, m_observation.get(),
            [this, row] { emit dataChanged(index(row), index(row), {statusRole}); });
    }
}

void RouterListModel::tellOfAllRows()
{
    if (!m_rows.isEmpty())
        emit dataChanged(index(0), index(static_cast<int>(m_rows.size()) - 1));
}

void RouterListModel::updateSelectedRow()
{
    const auto id = m_store.selectedConnectionID();
    const int row = id ? static_cast<int>(ids(m_rows).indexOf(*id)) : -1;
    if (row == m_selectedRow)
        return;
    m_selectedRow = row;
    emit selectedRowChanged();
}

} // namespace corvane
