#pragma once

#include "Views/Panels/PanelListModel.h"

namespace corvane {

/// The list of panels in which they are put in order, edited, duplicated and deleted.
class PanelManagerModel : public PanelListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a PanelsModel")

public:
    using PanelListModel::PanelListModel;

    /// What a row's buttons do, for QML.
    Q_INVOKABLE [[nodiscard]] QVariantList buttonsOf(int row);

    [[nodiscard]] QList<MenuAction> menu(int row) override;
    /// Edits the panel. A click alone only moves the keyboard there.
    void press(int row) override;
    void click(int /*row*/) override { }
    void doubleClick(int row) override { press(row); }
    [[nodiscard]] bool canMove(int row) const override { return contains(row); }
    void moveRow(int row, int before) override;
};

} // namespace corvane
