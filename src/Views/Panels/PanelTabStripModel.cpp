#include "Views/Panels/PanelTabStripModel.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

QString PanelTabStripModel::tip(const PanelItem& item) const
{
    return item.isFullRouter() ? u"Full Router, all ports"_s : item.size;
}

QString PanelTabStripModel::help(const PanelItem& item) const
{
    return item.isFullRouter() ? QString() : u"Shows only this panel's ports"_s;
}

QString PanelTabStripModel::menuText(const PanelItem& item) const
{
    return item.isFullRouter() ? u"Full Router"_s : item.name;
}

void PanelTabStripModel::activate(int row)
{
    const auto* const item = rowAt(row);
    if (!controller() || !item)
        return;
    if (item->isFullRouter())
        controller()->setActivePanelID(std::nullopt);
    else
        controller()->setActivePanelID(item->id);
}

int PanelTabStripModel::startRow() const
{
    const auto active = std::ranges::find(rows(), true, &PanelItem::isActive);
    return active == rows().cend() ? 0 : static_cast<int>(active - rows().cbegin());
}

QList<MenuAction> PanelTabStripModel::menu(int row)
{
    const auto* const item = rowAt(row);
    if (!item || item->isFullRouter())
        return {};
    return {editing(*item, u"Edit Panel…"_s), duplicating(*item), deleting(*item)};
}

QList<PanelItem> PanelTabStripModel::leadingItems() const
{
    return {{.name = u"All"_s, .isActive = !controller()->activePanelID()}};
}

void PanelTabStripModel::onActivePanelChanged()
{
    if (const int row = startRow(); row > 0)
        emit rowWanted(row);
}

} // namespace corvane
