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
    m_before.emplace(Before{controller.m_now, controller.visiblePorts(), controller.activePanel()});
}

MatrixController::Change::~Change()
{
    if (!m_before)
        return;
    // From here on an observer may start an operation of its own.
    m_controller.m_change = nullptr;
    for (const auto& tell : m_notes)
        tell();
    tellOf(*m_before);
}

void MatrixController::Change::tellOf(const Before& before) const
{
    auto& controller = m_controller;
    if (before.visiblePorts != controller.visiblePorts())
        emit controller.visiblePortsChanged();
    tellOfProperties(before.observed);
    if (before.observed.activePanelID != controller.m_now.activePanelID
        || before.activePanel != controller.activePanel())
        emit controller.activePanelChanged();
}

void MatrixController::Change::tellOfProperties(const Observed& before) const
{
    auto& controller = m_controller;
    const auto tell = [&](auto Observed::*property, void (MatrixController::*changed)()) {
        if (before.*property != controller.m_now.*property)
            (controller.*changed)();
    };
    tell(&Observed::viewMode, &MatrixController::viewModeChanged);
    tell(&Observed::takeMode, &MatrixController::takeModeChanged);
    tell(&Observed::routingDirection, &MatrixController::routingDirectionChanged);
    tell(&Observed::primaryLevel, &MatrixController::primaryLevelChanged);
    tell(&Observed::breakawayLevels, &MatrixController::breakawayLevelsChanged);
    tell(&Observed::multiSelectMode, &MatrixController::multiSelectModeChanged);
    tell(&Observed::selection, &MatrixController::selectionChanged);
    tell(&Observed::staging, &MatrixController::stagingChanged);
    tell(&Observed::renameDraft, &MatrixController::renameDraftChanged);
    tell(&Observed::renameTarget, &MatrixController::renameTargetChanged);
    tell(&Observed::salvos, &MatrixController::salvosChanged);
    tell(&Observed::panels, &MatrixController::panelsChanged);
    tell(&Observed::lastError, &MatrixController::lastErrorChanged);
    tell(&Observed::statusMessage, &MatrixController::statusMessageChanged);
    tell(&Observed::readingProgress, &MatrixController::readingProgressChanged);
    tell(&Observed::status, &MatrixController::statusChanged);
}

} // namespace corvane
