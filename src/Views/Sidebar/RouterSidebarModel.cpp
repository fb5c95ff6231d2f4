#include "Views/Sidebar/RouterSidebarModel.h"

#include "Foundation/Text.h"

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

RouterSidebarModel::RouterSidebarModel(ConnectionStore& store, const GlassKit& theme)
    : m_store(store), m_theme(theme)
{
    connect(&store, &ConnectionStore::connectionsChanged, this, &RouterSidebarModel::reload);
    connect(
        &store, &ConnectionStore::selectedConnectionIDChanged, this, &RouterSidebarModel::followSelection);
    connect(&theme, &GlassKit::paletteChanged, this, &RouterSidebarModel::reload);
    reload();
}

void RouterSidebarModel::reload()
{
    // A copy, for whoever is told of a row may change the list.
    const auto connections = m_store.connections();
    QList<RouterRow> rows;
    m_observation = std::make_unique<QObject>();
    for (const auto& connection : connections) {
        rows.append(rowFor(connection));
        QObject::connect(&m_store.controller(connection), &MatrixController::changed, m_observation.get(),
            [this, id = connection.id] { refreshRow(id); });
    }
    setRows(rows);
    followSelection();
    followDeleting();
}

RouterRow RouterSidebarModel::rowFor(const RouterConnection& connection) const
{
    const auto& controller = m_store.controller(connection);
    return {.id = connection.id,
        .name = connection.name,
        .endpoint = connection.endpointDescription(),
        .symbol = symbolName(connection.vendor),
        .tint = routerColor(connection, m_theme.palette()),
        .status = statusLook(controller.status(), m_theme.palette()),
        .isConnected = controller.isConnected(),
        .isSelected = m_store.selectedConnectionID() == connection.id};
}

void RouterSidebarModel::refreshRow(const QUuid& id)
{
    const auto row = rowOf(id);
    const auto connection = router(id);
    if (row && connection)
        setRow(*row, rowFor(*connection));
}

void RouterSidebarModel::followSelection()
{
    const auto shown = rows();
    for (const auto& row : shown)
        refreshRow(row.id);
    const auto selected = m_store.selectedConnectionID();
    if (std::exchange(m_selected, selected) != selected)
        emit rowWanted(startRow());
}

std::optional<RouterConnection> RouterSidebarModel::router(const QUuid& id) const
{
    const auto& connections = m_store.connections();
    const auto found = std::ranges::find(connections, id, &RouterConnection::id);
    return found == connections.cend() ? std::nullopt : std::optional(*found);
}

QVariant RouterSidebarModel::data(const QModelIndex& index, int role) const
{
    const auto* const row = rowAt(index.row());
    if (!row)
        return {};
    if (role == rowRole)
        return QVariant::fromValue(*row);
    return role == Qt::DisplayRole ? QVariant(row->name) : QVariant();
}

QHash<int, QByteArray> RouterSidebarModel::roleNames() const
{
    return {{rowRole, "row"}};
}

RowSpeech RouterSidebarModel::speech(int row) const
{
    const auto* const shown = rowAt(row);
    if (!shown)
        return {};
    return {.name = shown->name,
        .description = shown->endpoint + u", "_s + shown->status.word,
        .isSelectable = true,
        .isSelected = shown->isSelected};
}

int RouterSidebarModel::startRow() const
{
    const auto selected = std::ranges::find(rows(), true, &RouterRow::isSelected);
    return selected == rows().cend() ? -1 : static_cast<int>(selected - rows().cbegin());
}

QList<MenuAction> RouterSidebarModel::menu(int row)
{
    const auto* const shown = rowAt(row);
    if (!shown)
        return {};
    QList<MenuAction> menu{{u"Edit…"_s, u"pencil"_s, [this, id = shown->id] { edit(id); }, Qt::Key_F2}};
    if (shown->isConnected)
        menu.append({u"Disconnect"_s, u"bolt.slash"_s, [this, id = shown->id] { disconnectRouter(id); }});
    menu.append(
        {u"Delete…"_s, u"trash"_s, [this, id = shown->id] { askToDelete(id); }, Qt::Key_Delete, true});
    return menu;
}

void RouterSidebarModel::press(int row)
{
    if (const auto* const shown = rowAt(row))
        m_store.setSelectedConnectionID(QUuid(shown->id));
}

void RouterSidebarModel::addRouter()
{
    m_editing.reset();
    setShowingEditor(true);
}

void RouterSidebarModel::edit(const QUuid& id)
{
    m_editing = router(id);
    setShowingEditor(m_editing.has_value());
}

void RouterSidebarModel::setShowingEditor(bool isShowing)
{
    if (std::exchange(m_showingEditor, isShowing) != isShowing)
        emit showingEditorChanged();
}

void RouterSidebarModel::disconnectRouter(const QUuid& id)
{
    if (const auto connection = router(id))
        m_store.controller(*connection).disconnect();
}

void RouterSidebarModel::askToDelete(const QUuid& id)
{
    setDeleting(router(id));
}

QString RouterSidebarModel::deleteTitle() const
{
    return m_deleting ? u"Delete “%1”?"_s.arg(m_deleting->name) : QString();
}

QString RouterSidebarModel::deleteMessage() const
{
    if (!m_deleting)
        return {};
    const auto panels = m_store.panelStore().panels(m_deleting->id).size();
    const auto salvos = m_store.salvoStore().byConnection().value(idText(m_deleting->id)).size();
    if (panels == 0 && salvos == 0)
        return u"Its saved settings and custom labels cannot be recovered."_s;
    return u"Also deletes %1, %2, and any custom labels for this router — none can be recovered."_s.arg(
        text::counted(panels, u"panel"_s), text::counted(salvos, u"salvo"_s));
}

void RouterSidebarModel::confirmDelete()
{
    const auto router = m_deleting;
    if (!router)
        return;
    setDeleting(std::nullopt);
    m_store.remove(*router);
}

void RouterSidebarModel::cancelDelete()
{
    setDeleting(std::nullopt);
}

void RouterSidebarModel::setDeleting(const std::optional<RouterConnection>& router)
{
    if (std::exchange(m_deleting, router) != router)
        emit deletingChanged();
}

void RouterSidebarModel::followDeleting()
{
    if (m_deleting)
        setDeleting(router(m_deleting->id));
}

} // namespace corvane
