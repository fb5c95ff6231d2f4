#pragma once

#include "Controllers/ConnectionStore.h"
#include "Theme/GlassKit.h"
#include "Views/Shared/RowListModel.h"
#include "Views/Sidebar/RouterRow.h"

namespace corvane {

/// The sidebar: the saved routers in their order, and what is being done with one of them.
///
/// A press opens a router, and so does the keyboard's arrival. A router that goes while its delete dialog is
/// open takes it along. Main thread.
class RouterSidebarModel : public KeyedRowListModel<RouterRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a ContentViewModel")
    /// The window is asked to show the router editor. Whoever closes it sets this back.
    Q_PROPERTY(bool showingEditor READ showingEditor WRITE setShowingEditor NOTIFY showingEditorChanged FINAL)
    Q_PROPERTY(bool isDeleting READ isDeleting NOTIFY deletingChanged FINAL)
    Q_PROPERTY(QString deleteTitle READ deleteTitle NOTIFY deletingChanged FINAL)
    Q_PROPERTY(QString deleteMessage READ deleteMessage NOTIFY deletingChanged FINAL)

public:
    /// The row as a whole, a `RouterRow`. The display role is its name.
    static constexpr int rowRole = Qt::UserRole;

    /// Both must outlive the model.
    RouterSidebarModel(ConnectionStore& store, const GlassKit& theme);

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

    Q_INVOKABLE void addRouter();
    Q_INVOKABLE void confirmDelete();
    Q_INVOKABLE void cancelDelete();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] RowSpeech speech(int row) const override;
    /// The selected router's, or -1.
    [[nodiscard]] int startRow() const final;
    [[nodiscard]] QList<MenuAction> menu(int row) override;
    void press(int row) override;
    void arrive(int row) override { press(row); }

signals:
    void showingEditorChanged();
    void deletingChanged();

private:
    void reload();
    void refreshRow(const QUuid& id);
    void followSelection();
    void followDeleting();
    [[nodiscard]] RouterRow rowFor(const RouterConnection& connection) const;
    [[nodiscard]] std::optional<RouterConnection> router(const QUuid& id) const;

    // What a row's menu does.
    void edit(const QUuid& id);
    void disconnectRouter(const QUuid& id);
    void askToDelete(const QUuid& id);
    void setDeleting(const std::optional<RouterConnection>& router);

    ConnectionStore& m_store;
    const GlassKit& m_theme;
    /// Ends the connections to the controllers of the rows as they were.
    std::unique_ptr<QObject> m_observation;
    /// As the rows show it.
    std::optional<QUuid> m_selected;
    bool m_showingEditor = false;
    std::optional<RouterConnection> m_editing;
    std::optional<RouterConnection> m_deleting;
};

} // namespace corvane
