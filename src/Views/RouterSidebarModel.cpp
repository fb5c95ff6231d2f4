#include "Views/RouterSidebarModel.h"

#include "Foundation/Text.h"

#include <algorithm>
#include <utility>

namespace corvane {

RouterSidebarModel::RouterSidebarModel(ConnectionStore& store, const GlassKit& theme, QObject* parent)
    : QObject(parent), m_store(store), m_routers(store, theme)
{
    connect(&store, &ConnectionStore::connectionsChanged, this, &RouterSidebarModel::followDeleting);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&m_routers, signal, this, &RouterSidebarModel::followMenu);
    connect(&m_routers, &QAbstractItemModel::modelReset, this, &RouterSidebarModel::followMenu);
    connect(&m_routers, &QAbstractItemModel::dataChanged, this, &RouterSidebarModel::followMenu);
}

void RouterSidebarModel::setShowingEditor(bool isShowing)
{
    if (std::exchange(m_showingEditor, isShowing) != isShowing)
        emit showingEditorChanged();
}

QString RouterSidebarModel::deleteTitle() const
{
    return m_deleting ? QStringLiteral("Delete “%1”?").arg(m_deleting->name) : QString();
}

QString RouterSidebarModel::deleteMessage() const
{
    if (!m_deleting)
        return {};
    const auto panels = m_store.panelStore().panels(m_deleting->id).size();
    const auto salvos = m_store.salvoStore().byConnection().value(idText(m_deleting->id)).size();
    if (panels == 0 && salvos == 0)
        return QStringLiteral("Its saved settings and custom labels cannot be recovered.");
    return QStringLiteral(
        "Also deletes %1, %2, and any custom labels for this router — none can be recovered.")
        .arg(text::counted(panels, QStringLiteral("panel")), text::counted(salvos, QStringLiteral("salvo")));
}

QVariantList RouterSidebarModel::menu() const
{
    QVariantList menu;
    for (const auto& command : m_menu)
        menu.append(QVariant::fromValue(command));
    return menu;
}

void RouterSidebarModel::addRouter()
{
    edit(std::nullopt);
}

void RouterSidebarModel::edit(const std::optional<RouterConnection>& router)
{
    m_editing = router;
    setShowingEditor(true);
}

void RouterSidebarModel::openMenu(int row)
{
    const auto router = m_routers.router(row);
    m_menuRouter = router ? std::optional(router->id) : std::nullopt;
    followMenu();
}

void RouterSidebarModel::closeMenu()
{
    openMenu(-1);
}

void RouterSidebarModel::followMenu()
{
    const int row = m_menuRouter ? m_routers.rowOf(*m_menuRouter) : -1;
    const auto menu = m_routers.commands(row);
    const bool isSame = row == m_menuRow && menu == m_menu;
    m_menuRow = row;
    m_menu = menu;
    if (!isSame)
        emit menuChanged();
}

void RouterSidebarModel::perform(const RouterCommand& command)
{
    closeMenu();
    const int row = m_routers.rowOf(command.router);
    const auto router = m_routers.router(row);
    if (!router || !m_routers.commands(row).contains(command))
        return;
    switch (command.kind) {
    case RouterCommand::Kind::edit:
        edit(router);
        return;
    case RouterCommand::Kind::disconnect:
        m_store.controller(*router).disconnect();
        return;
    case RouterCommand::Kind::remove:
        setDeleting(router);
        return;
    }
}

void RouterSidebarModel::performAt(int row, int position)
{
    const auto commands = m_routers.commands(row);
    if (position >= 0 && position < commands.size())
        perform(commands.at(position));
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
        setDeleting(m_routers.router(m_routers.rowOf(m_deleting->id)));
}

bool RouterSidebarModel::pressKey(int key, int modifiers)
{
    const bool isShifted = (modifiers & Qt::ShiftModifier) != 0;
    if ((modifiers & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0)
        return false;
    // Shift+F10 is the menu key of keyboards that have none.
    if (isShifted != (key == Qt::Key_F10))
        return false;
    const int row = m_routers.selectedRow();
    switch (key) {
    case Qt::Key_Up:
        m_routers.select(std::max(0, row - 1));
        return true;
    case Qt::Key_Down:
        m_routers.select(std::min(m_routers.rowCount() - 1, row + 1));
        return true;
    case Qt::Key_Home:
        m_routers.select(0);
        return true;
    case Qt::Key_End:
        m_routers.select(m_routers.rowCount() - 1);
        return true;
    default:
        return row >= 0 && actOnSelected(key);
    }
}

bool RouterSidebarModel::actOnSelected(int key)
{
    const int row = m_routers.selectedRow();
    switch (key) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        setDeleting(m_routers.router(row));
        return true;
    case Qt::Key_Menu:
    case Qt::Key_F10:
        openMenu(row);
        emit menuRequested(row);
        return true;
    default:
        return false;
    }
}

} // namespace corvane
