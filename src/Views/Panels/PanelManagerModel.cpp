#include "Views/Panels/PanelManagerModel.h"

namespace corvane {

using namespace Qt::StringLiterals;

QVariantList PanelManagerModel::buttonsOf(int row)
{
    const auto* const item = rowAt(row);
    return item ? toVariants({editing(*item, u"Edit…"_s), deleting(*item)}) : QVariantList();
}

QList<MenuAction> PanelManagerModel::menu(int row)
{
    const auto* const item = rowAt(row);
    if (!item)
        return {};
    // Where the panel is by then, whatever became of its neighbours meanwhile.
    const auto move = [this, id = item->id](int step) {
        if (const auto now = rowOf(id))
            moveRow(*now, step < 0 ? *now - 1 : *now + 2);
    };
    QList<MenuAction> menu{editing(*item, u"Edit…"_s), duplicating(*item)};
    if (row > 0)
        menu.append({.text = u"Move Up"_s,
            .symbol = u"arrow.up"_s,
            .run = [move] { move(-1); },
            .key = Qt::ALT | Qt::Key_Up});
    if (row < rowCount() - 1)
        menu.append({.text = u"Move Down"_s,
            .symbol = u"arrow.down"_s,
            .run = [move] { move(1); },
            .key = Qt::ALT | Qt::Key_Down});
    menu.append(deleting(*item));
    return menu;
}

void PanelManagerModel::press(int row)
{
    if (const auto panel = panelAt(row))
        emit editRequested(*panel);
}

void PanelManagerModel::moveRow(int row, int before)
{
    if (controller() && contains(row) && before >= 0 && before <= rowCount())
        controller()->movePanels({row}, before);
}

} // namespace corvane
