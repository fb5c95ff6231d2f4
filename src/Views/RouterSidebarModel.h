#pragma once

#include "Views/RouterListModel.h"

#include <QVariantList>

namespace corvane {

/// The sidebar: the list of routers, and what is being done with one of them.
///
/// A router that goes while its menu or its delete dialog is open takes them along. Rows count from 0; a row
/// that isn't there is ignored. Main thread.
class RouterSidebarModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a ContentViewModel")
    Q_PROPERTY(corvane::RouterListModel* routers READ routers CONSTANT FINAL)
    /// The window is asked to show the router editor. Whoever closes it sets this back.
    Q_PROPERTY(bool showingEditor READ showingEditor WRITE setShowingEditor NOTIFY showingEditorChanged FINAL)
    Q_PROPERTY(bool isDeleting READ isDeleting NOTIFY deletingChanged FINAL)
    Q_PROPERTY(QString deleteTitle READ deleteTitle NOTIFY deletingChanged FINAL)
    Q_PROPERTY(QString deleteMessage READ deleteMessage NOTIFY deletingChanged FINAL)
    /// The row whose menu is open, or -1.
    Q_PROPERTY(int menuRow READ menuRow NOTIFY menuChanged FINAL)
    /// The open menu's entries, each a `RouterCommand`; they follow the router's status.
    Q_PROPERTY(QVariantList menu READ menu NOTIFY menuChanged FINAL)

public:
    /// Both must outlive the model.
    RouterSidebarModel(ConnectionStore& store, const GlassKit& theme, QObject* parent = nullptr);

    [[nodiscard]] RouterListModel* routers() { return &m_routers; }
    [[nodiscard]] bool showingEditor() const { return m_showingEditor; }
    void setShowingEditor(bool isShowing);
    /// What the editor edits; absent means that it adds a router.
    [[nodiscard]] const std::optional<RouterConnection>& editing() const { return m_editing; }
    /// The router that the delete dialog is about; absent while there is no dialog.
    [[nodiscard]] const std::optional<RouterConnection>& deleting() const { return m_deleting; }
    [[nodiscard]] bool isDeleting() const { return m_deleting.has_value(); }
    /// Empty while nothing is being deleted.
    [[nodiscard]] QString deleteTitle() const;
    [[nodiscard]] QString deleteMessage() const;
    [[nodiscard]] int menuRow() const { return m_menuRow; }
    [[nodiscard]] QVariantList menu() const;

    Q_INVOKABLE void addRouter();
    Q_INVOKABLE void openMenu(int row);
    Q_INVOKABLE void closeMenu();
    /// Closes the menu. A command that its router no longer offers is ignored.
    Q_INVOKABLE void perform(const corvane::RouterCommand& command);
    /// The same by its place among the row's command names.
    Q_INVOKABLE void performAt(int row, int position);
    Q_INVOKABLE void confirmDelete();
    Q_INVOKABLE void cancelDelete();
    /// A key pressed in the list, by Qt's number. False if it means nothing there.
    Q_INVOKABLE bool pressKey(int key, int modifiers);

signals:
    void showingEditorChanged();
    void deletingChanged();
    void menuChanged();
    /// The keyboard asks for a row's menu, which is open by now.
    void menuRequested(int row);

private:
    void edit(const std::optional<RouterConnection>& router);
    void setDeleting(const std::optional<RouterConnection>& router);
    void followDeleting();
    void followMenu();
    [[nodiscard]] bool actOnSelected(int key);

    ConnectionStore& m_store;
    RouterListModel m_routers;
    bool m_showingEditor = false;
    std::optional<RouterConnection> m_editing;
    std::optional<RouterConnection> m_deleting;
    std::optional<QUuid> m_menuRouter;
    int m_menuRow = -1;
    QList<RouterCommand> m_menu;
};

} // namespace corvane
