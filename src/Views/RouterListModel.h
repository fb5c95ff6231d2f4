#pragma once

#include "Controllers/ConnectionStore.h"
#include "Theme/GlassKit.h"

#include <QAbstractListModel>

namespace corvane {

/// The saved routers as the sidebar lists them, in their order, and which one is selected. Main thread.
class RouterListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a ContentViewModel")
    /// The row of the selected router, or -1.
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged FINAL)

public:
    enum Role { nameRole = Qt::UserRole, endpointRole, symbolRole, tintRole, statusRole };

    /// Both must outlive the model.
    RouterListModel(ConnectionStore& store, const GlassKit& theme, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] int selectedRow() const { return m_selectedRow; }
    /// A row that isn't there is ignored.
    Q_INVOKABLE void select(int row);

signals:
    void selectedRowChanged();

private:
    void reload();
    void observeRows();
    void tellOfAllRows();
    void updateSelectedRow();

    ConnectionStore& m_store;
    const GlassKit& m_theme;
    /// What the rows were made from: the store's list as of the last reload.
    QList<RouterConnection> m_rows;
    int m_selectedRow = -1;
    /// Ends the connections to the controllers of the rows as they were.
    std::unique_ptr<QObject> m_observation;
};

} // namespace corvane
