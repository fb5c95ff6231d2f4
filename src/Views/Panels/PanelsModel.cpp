#include "Views/Panels/PanelsModel.h"

#include "Views/Panels/PanelTexts.h"

#include <initializer_list>

namespace corvane {

PanelsModel::PanelsModel(const GlassKit& theme, QObject* parent) : ScreenModel(theme, parent), m_editor(theme)
{
    connect(&m_tabs, &PanelTabStripModel::rowWanted, this, &PanelsModel::tabWanted);
    for (PanelListModel* list : std::initializer_list<PanelListModel*>{&m_tabs, &m_manager}) {
        connect(list, &PanelListModel::editRequested, &m_editor, &PanelEditorModel::begin);
        connect(list, &PanelListModel::deleteRequested, this, &PanelsModel::askToDelete);
    }
}

void PanelsModel::setController(MatrixController* controller)
{
    m_tabs.setController(controller);
    m_manager.setController(controller);
    m_editor.setController(controller);
    ScreenModel::setController(controller);
}

void PanelsModel::addPanel()
{
    if (controller())
        m_editor.begin(controller()->newPanelDraft());
}

void PanelsModel::editActivePanel()
{
    if (const auto panel = controller() ? controller()->activePanel() : std::nullopt)
        m_editor.begin(*panel);
}

void PanelsModel::openManager()
{
    m_showsManager = true;
    refresh();
}

void PanelsModel::closeManager()
{
    m_showsManager = false;
    refresh();
}

void PanelsModel::askToDelete(const SubPanel& panel)
{
    m_deleting = panel.id;
    refresh();
}

void PanelsModel::confirmDelete()
{
    const auto panel = deleting();
    m_deleting.reset();
    if (panel)
        controller()->deletePanel(*panel);
    refresh();
}

void PanelsModel::cancelDelete()
{
    m_deleting.reset();
    refresh();
}

std::optional<SubPanel> PanelsModel::deleting() const
{
    return m_deleting ? m_tabs.panel(*m_deleting) : std::nullopt;
}

void PanelsModel::refresh()
{
    const auto panel = deleting();
    replace(m_content,
        {.hasPanels = controller() && !controller()->panels().isEmpty(),
            .showsManager = m_showsManager,
            .isDeleting = panel.has_value(),
            .deleteTitle = panel ? panelTexts::deleteTitle(*panel) : QString(),
            .deleteMessage =
                panel ? panelTexts::deleteMessage(controller()->salvoCount(*panel)) : QString()});
}

} // namespace corvane
