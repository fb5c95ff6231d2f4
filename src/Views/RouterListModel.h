#pragma once

#include "Controllers/ConnectionStore.h"
#include "Theme/GlassKit.h"
#include "Views/RouterCommand.h"

#include <QAbstractListModel>
#include <QPointer>

namespace corvane {

/// The saved routers as the sidebar lists them, in their order, and which one is selected. A router that is
/// added or removed comes or goes in its own row; the others stay where they are. Main thread.
class RouterListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a RouterSidebarModel")
    /// The row of the selected router, or -1.
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged FINAL)

public:
    /// `commandNamesRole`: the texts of `commands`, in their order.
    enum Role { nameRole = Qt::UserRole, endpointRole, symbolRole, tintRole, statusRole, commandNamesRole };

    /// Both must outlive the model.
    RouterListModel(ConnectionStore& store, const GlassKit& theme, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] int selectedRow() const { return m_selectedRow; }
    /// A row that isn't there is ignored.
    Q_INVOKABLE void select(int row);

    /// Absent for a row that isn't there.
    [[nodiscard]] std::optional<RouterConnection> router(int row) const;
    /// -1 for a router that isn't there.
    [[nodiscard]] int rowOf(const QUuid& id) const;
    /// What the router offers as things are; nothing for a row that isn't there.
    [[nodiscard]] QList<RouterCommand> commands(int row) const;

signals:
    void selectedRowChanged();

private:
    struct Row {
        RouterConnection connection;
        QPointer<MatrixController> controller;
        [[nodiscard]] QUuid id() const { return connection.id; }
        [[nodiscard]] ConnectionStatus status() const;
        bool operator==(const Row&) const = default;
    };

    [[nodiscard]] int count() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] bool contains(int row) const { return row >= 0 && row < count(); }
    void reload();
    void removeAllBut(const QList<RouterConnection>& connections);
    void adopt(const QList<RouterConnection>& connections);
    void observeRows();
    void tellOfAllRows();
    void updateSelectedRow();

    ConnectionStore& m_store;
    const GlassKit& m_theme;
    /// What views know: the store's list as of the last reload.
    QList<Row> m_rows;
    int m_selectedRow = -1;
    /// Ends the connections to the controllers of the rows as they were.
    std::unique_ptr<QObject> m_observation;
};

} // namespace corvane
