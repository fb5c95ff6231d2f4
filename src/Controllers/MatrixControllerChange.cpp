#include "Controllers/MatrixControllerChange.h"

#include <utility>

namespace corvane {

MatrixController::Change::Change(MatrixController& controller) : m_controller(controller)
{
    Q_ASSERT(controller.m_environment.mainQueue.isCurrent());
    if (controller.m_change)
        return;
    controller.m_change = this;
    // Cheap: lists and sets are shared until one side writes.
    m_before.emplace(Before{controller.m_operator, controller.m_observed, controller.m_renameDraft,
        controller.visiblePorts(), controller.m_activePanelID, controller.activePanel(),
        controller.lockedPendingDestinations()});
}

MatrixController::Change::~Change()
{
    if (!m_before)
        return;
    // From here on an observer may start an operation of its own.
    m_controller.m_change = nullptr;
    for (const auto& emitSignal : m_notes)
        emitSignal();
    emitDifferences();
}

void MatrixController::Change::emitDifferences() const
{
    if (!m_before)
        return;
    const auto& before = *m_before;
    auto& controller = m_controller;
    if (before.visiblePorts != controller.visiblePorts())
        emit controller.visiblePortsChanged();
    if (before.activePanelID != controller.m_activePanelID || before.activePanel != controller.activePanel())
        emit controller.activePanelChanged();
    if (before.renameDraft != controller.m_renameDraft)
        emit controller.renameDraftChanged();
    if (before.operatorState != controller.m_operator || before.observed != controller.m_observed
        || before.lockedPendingDestinations != controller.lockedPendingDestinations())
        emit controller.changed();
}

} // namespace corvane
