#pragma once

#include "Views/Panels/PanelListModel.h"

namespace corvane {

/// The tabs above the routing area: the full router, then each panel. A tab that is pressed is what all
/// screens show.
///
/// `rowWanted` asks for the tab of a panel that has become active, from whatever cause.
class PanelTabStripModel : public PanelListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a PanelsModel")

public:
    using PanelListModel::PanelListModel;

    Q_INVOKABLE [[nodiscard]] QString tip(const corvane::PanelItem& item) const;
    Q_INVOKABLE [[nodiscard]] QString help(const corvane::PanelItem& item) const;
    /// What a menu calls it, which has no other tabs beside it.
    Q_INVOKABLE [[nodiscard]] QString menuText(const corvane::PanelItem& item) const;
    Q_INVOKABLE void activate(int row);
    /// What a tab's menu offers, for QML, and its choice by the text.
    Q_INVOKABLE [[nodiscard]] QVariantList menuOf(int row) { return toVariants(menu(row)); }
    Q_INVOKABLE void chooseInMenu(int row, const QString& text) { runAction(menu(row), text); }
    /// What a key does at a tab; returns whether it does anything. `key` is a `Qt::Key`.
    Q_INVOKABLE bool runKey(int row, int key) { return runAction(menu(row), static_cast<Qt::Key>(key)); }

    [[nodiscard]] int startRow() const override;
    [[nodiscard]] QList<MenuAction> menu(int row) override;
    void press(int row) override { activate(row); }

protected:
    [[nodiscard]] QList<PanelItem> leadingItems() const override;
    void onActivePanelChanged() override;
};

} // namespace corvane
