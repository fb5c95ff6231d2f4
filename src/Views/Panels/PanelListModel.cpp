#include "Views/Panels/PanelListModel.h"

#include "Foundation/Text.h"
#include "Views/Panels/PanelTexts.h"

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

void PanelListModel::setController(MatrixController* newController)
{
    if (newController == m_controller)
        return;
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = newController;
    if (!newController)
        return;
    connect(newController, &MatrixController::changed, this, &PanelListModel::refresh);
    connect(newController, &MatrixController::activePanelChanged, this, &PanelListModel::refresh);
    m_active = newController->activePanelID();
    reload();
}

void PanelListModel::refresh()
{
    const auto active = m_controller->activePanelID();
    const bool isOtherActive = std::exchange(m_active, active) != active;
    // Most changes of a controller are none of its panels. Comparing a list with a copy of itself costs
    // nothing.
    if (!isOtherActive && m_panels == m_controller->panels())
        return;
    reload();
    if (isOtherActive)
        onActivePanelChanged();
}

void PanelListModel::reload()
{
    m_panels = m_controller->panels();
    auto items = leadingItems();
    for (const auto& panel : std::as_const(m_panels))
        items.append({.id = panel.id,
            .name = text::oneLine(panel.name),
            .size = panelTexts::size(panel),
            .isActive = panel.id == m_active});
    setRows(items);
}

QVariant PanelListModel::data(const QModelIndex& index, int role) const
{
    const auto* const item = rowAt(index.row());
    if (!item)
        return {};
    if (role == rowRole)
        return QVariant::fromValue(*item);
    return role == Qt::DisplayRole ? QVariant(item->name) : QVariant();
}

QHash<int, QByteArray> PanelListModel::roleNames() const
{
    return {{rowRole, "row"}};
}

RowSpeech PanelListModel::speech(int row) const
{
    const auto* const item = rowAt(row);
    if (!item)
        return {};
    return {.name = item->name, .description = item->isActive ? item->size + u", Active"_s : item->size};
}

std::optional<SubPanel> PanelListModel::panelAt(int row) const
{
    const auto* const item = rowAt(row);
    return item ? panel(item->id) : std::nullopt;
}

std::optional<SubPanel> PanelListModel::panel(const QUuid& id) const
{
    if (!m_controller)
        return std::nullopt;
    const auto& panels = m_controller->panels();
    const auto found = std::ranges::find(panels, id, &SubPanel::id);
    return found == panels.cend() ? std::nullopt : std::optional(*found);
}

MenuAction PanelListModel::editing(const PanelItem& item, const QString& text)
{
    const auto edit = [this, id = item.id] {
        if (const auto stored = panel(id))
            emit editRequested(*stored);
    };
    return {.text = text, .symbol = u"pencil"_s, .run = edit, .key = Qt::Key_F2};
}

MenuAction PanelListModel::duplicating(const PanelItem& item)
{
    const auto duplicate = [this, id = item.id] {
        if (const auto stored = panel(id))
            m_controller->duplicatePanel(*stored);
    };
    return {.text = u"Duplicate"_s, .symbol = u"plus.square.on.square"_s, .run = duplicate};
}

MenuAction PanelListModel::deleting(const PanelItem& item)
{
    const auto remove = [this, id = item.id] {
        if (const auto stored = panel(id))
            emit deleteRequested(*stored);
    };
    return {.text = u"Delete"_s,
        .symbol = u"trash"_s,
        .run = remove,
        .key = Qt::Key_Delete,
        .isDestructive = true};
}

} // namespace corvane
