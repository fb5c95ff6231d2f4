#include "Views/Salvos/SalvoStripModel.h"

#include "Foundation/Text.h"

#include <utility>

namespace corvane {

SalvoStripModel::SalvoStripModel(SerialQueue& mainQueue)
    : SalvoListModel(mainQueue, SalvoDialogs::Place::strip)
{
}

void SalvoStripModel::setController(MatrixController* newController)
{
    SalvoListModel::setController(newController);
    refreshContent();
}

QList<SalvoRow> SalvoStripModel::makeRows()
{
    refreshContent();
    QList<SalvoRow> rows;
    for (const auto salvos = controller()->visibleSalvos(); const auto& salvo : salvos)
        rows.append(rowFor(salvo));
    return rows;
}

void SalvoStripModel::refreshContent()
{
    SalvoStripContent content;
    if (controller()) {
        const auto panel = controller()->activePanel();
        content = {.isShown = controller()->isConnected() && controller()->showsSalvoStrip(),
            .noneYet =
                panel && controller()->visibleSalvos().isEmpty() ? salvoTexts::noneYet(*panel) : QString(),
            .newTip = panel ? u"New salvo in %1"_s.arg(text::oneLine(panel->name)) : u"New salvo"_s};
    }
    if (std::exchange(m_content, content) != content)
        emit contentChanged();
}

QList<MenuAction> SalvoStripModel::menu(int row)
{
    const auto salvo = salvoAt(row);
    if (!salvo)
        return {};
    return {updateAction(*salvo, u"Update from Current Routing…"_s), deleteAction(*salvo, u"Delete Salvo"_s)};
}

} // namespace corvane
