#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Model/Naming.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

std::optional<SubPanel> MatrixController::panel(std::optional<QUuid> panelID) const
{
    if (!panelID)
        return std::nullopt;
    const auto found = std::ranges::find(m_observed.panels, *panelID, &SubPanel::id);
    return found == m_observed.panels.cend() ? std::nullopt : std::optional(*found);
}

std::optional<SubPanel> MatrixController::activePanel() const
{
    return panel(m_activePanelID);
}

void MatrixController::setActivePanelID(std::optional<QUuid> panelID)
{
    const Change change(*this);
    if (std::exchange(m_activePanelID, panelID) == panelID)
        return;
    refreshPanelPorts();
    clearPending();
    pruneSelectionsToVisible();
    m_environment.panelStore.setActivePanelID(panelID, m_connection.id);
}

SubPanel MatrixController::newPanelDraft() const
{
    SubPanel draft;
    draft.name = newPanelName(m_observed.panels);
    return draft;
}

void MatrixController::savePanel(const SubPanel& panel)
{
    const Change change(*this);
    auto entered = panel;
    entered.name = naming::entered(panel.name);
    m_environment.panelStore.upsert(entered, m_connection.id);
    readPanelsBack();
    if (panel.id != m_activePanelID)
        return;
    clearPending();
    pruneSelectionsToVisible();
}

void MatrixController::duplicatePanel(const SubPanel& panel)
{
    const Change change(*this);
    auto copy = panel;
    copy.id = QUuid::createUuid();
    copy.name += u" Copy"_s;
    savePanel(copy);
    QList<Salvo> salvos;
    for (auto salvo : std::as_const(m_observed.salvos)) {
        if (salvo.panelID != panel.id)
            continue;
        salvo.id = QUuid::createUuid();
        salvo.panelID = copy.id;
        salvos.append(salvo);
    }
    m_environment.salvoStore.addAll(salvos, m_connection.id);
    readSalvosBack();
}

void MatrixController::deletePanel(const SubPanel& panel)
{
    const Change change(*this);
    m_environment.salvoStore.removeAll(panel.id, m_connection.id);
    readSalvosBack();
    m_environment.panelStore.remove(panel.id, m_connection.id);
    readPanelsBack();
    if (m_activePanelID == panel.id)
        setActivePanelID(std::nullopt);
}

void MatrixController::movePanels(const QSet<qsizetype>& fromOffsets, qsizetype toOffset)
{
    const Change change(*this);
    m_environment.panelStore.reorder(m_connection.id,
        [&](QList<SubPanel>& stored) { stored = movedAsBlock(stored, fromOffsets, toOffset); });
    readPanelsBack();
}

void MatrixController::readPanelsBack()
{
    m_observed.panels = m_environment.panelStore.panels(m_connection.id);
    refreshPanelPorts();
}

void MatrixController::refreshPanelPorts()
{
    const auto active = activePanel();
    m_panelPorts = active ? std::optional(panelPorts(*active, m_state)) : std::nullopt;
}

void MatrixController::pruneSelectionsToVisible()
{
    const auto destinations = routing::portIndices(visibleDestinations());
    m_operator.selection.destinations.intersect(destinations);
    m_operator.staging.destinations.intersect(destinations);
    auto& destination = m_operator.selection.destination;
    if (destination && !destinations.contains(*destination))
        destination.reset();
    auto& source = m_operator.selection.source;
    if (source && !routing::portIndices(visibleSources()).contains(*source))
        source.reset();
}

} // namespace corvane
