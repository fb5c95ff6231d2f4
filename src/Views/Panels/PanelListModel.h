#pragma once

#include "Controllers/MatrixController.h"
#include "Views/Panels/PanelItem.h"
#include "Views/Shared/RowListModel.h"

#include <QPointer>

namespace corvane {

/// The panels of a router in their stored order, for whatever lists them.
///
/// The controller may be replaced, and may go at any time. Main thread.
class PanelListModel : public KeyedRowListModel<PanelItem> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A base")

public:
    /// The row as a whole, a `PanelItem`. The display role is its name.
    static constexpr int rowRole = Qt::UserRole;

    void setController(MatrixController* controller);

    /// As it is stored now; absent also when it is gone.
    [[nodiscard]] std::optional<SubPanel> panel(const QUuid& id) const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] RowSpeech speech(int row) const override;

signals:
    void editRequested(const corvane::SubPanel& panel);
    void deleteRequested(const corvane::SubPanel& panel);

protected:
    using KeyedRowListModel::KeyedRowListModel;

    [[nodiscard]] MatrixController* controller() const { return m_controller; }
    /// The panel of a row as it is stored now; absent for the full router.
    [[nodiscard]] std::optional<SubPanel> panelAt(int row) const;
    MenuAction editing(const PanelItem& item, const QString& text);
    MenuAction duplicating(const PanelItem& item);
    MenuAction deleting(const PanelItem& item);

    /// What comes before the panels.
    [[nodiscard]] virtual QList<PanelItem> leadingItems() const { return {}; }
    /// Another panel is active than before, or none.
    virtual void onActivePanelChanged() { }

private:
    void refresh();
    void reload();

    QPointer<MatrixController> m_controller;
    QList<SubPanel> m_panels;
    std::optional<QUuid> m_active;
};

} // namespace corvane
