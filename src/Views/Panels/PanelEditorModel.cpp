#include "Views/Panels/PanelEditorModel.h"

#include "Foundation/Text.h"
#include "Views/Panels/PanelTexts.h"

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

PanelEditorModel::PanelEditorModel(const GlassKit& theme, QObject* parent) : ScreenModel(theme, parent)
{
    connect(&m_sources, &PanelAxisModel::countsChanged, this, &PanelEditorModel::refreshContent);
    connect(&m_destinations, &PanelAxisModel::countsChanged, this, &PanelEditorModel::refreshContent);
}

void PanelEditorModel::begin(const SubPanel& panel)
{
    if (!controller())
        return;
    m_isNew =
        std::ranges::find(controller()->panels(), panel.id, &SubPanel::id) == controller()->panels().cend();
    m_panel = panel;
    m_isShown = true;
    emit nameChanged();
    setSearch({});
    m_sources.setChosen(panel.sourceIndices);
    m_destinations.setChosen(panel.destinationIndices);
    refresh();
}

void PanelEditorModel::setName(const QString& name)
{
    if (std::exchange(m_panel.name, name) == name)
        return;
    emit nameChanged();
    refreshContent();
}

void PanelEditorModel::setSearch(const QString& search)
{
    if (std::exchange(m_search, search) == search)
        return;
    m_sources.setSearch(search);
    m_destinations.setSearch(search);
    emit searchChanged();
}

void PanelEditorModel::commit()
{
    if (!m_isShown || !controller() || !isSavable())
        return;
    m_panel.name = text::trimWhiteSpace(m_panel.name);
    m_panel.sourceIndices = m_sources.chosen();
    m_panel.destinationIndices = m_destinations.chosen();
    // Whoever is told of the panel may open the editor anew.
    const auto panel = m_panel;
    const bool isNew = m_isNew;
    close();
    controller()->savePanel(panel);
    if (isNew)
        controller()->setActivePanelID(panel.id);
}

void PanelEditorModel::cancel()
{
    close();
}

void PanelEditorModel::close()
{
    m_isShown = false;
    refreshContent();
}

void PanelEditorModel::refresh()
{
    if (!m_isShown)
        return;
    m_sources.setPorts(controller()->state().sources);
    m_destinations.setPorts(controller()->state().destinations);
    refreshContent();
}

bool PanelEditorModel::isSavable() const
{
    return !text::trimWhiteSpace(m_panel.name).isEmpty() && !m_sources.chosen().isEmpty()
        && !m_destinations.chosen().isEmpty();
}

void PanelEditorModel::refreshContent()
{
    replace(m_content,
        {.isShown = m_isShown,
            .title = m_isNew ? u"New Panel"_s : u"Edit Panel"_s,
            .missing = panelTexts::missing(m_sources.missingCount() + m_destinations.missingCount()),
            .saveText = u"Save (%1×%2)"_s.arg(m_sources.chosen().size()).arg(m_destinations.chosen().size()),
            .isSavable = isSavable()});
}

} // namespace corvane
