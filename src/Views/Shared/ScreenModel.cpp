#include "Views/Shared/ScreenModel.h"

#include <array>

namespace corvane {

namespace {

// Everything but what changes with the router's traffic: crosspoints, locks and signals.
constexpr std::array quietSignals{&MatrixController::changed, &MatrixController::stateReplaced,
    &MatrixController::labelsChanged, &MatrixController::visiblePortsChanged,
    &MatrixController::activePanelChanged};

} // namespace

ScreenModel::ScreenModel(const GlassKit& theme, QObject* parent) : QObject(parent), m_theme(theme)
{
    connect(&theme, &GlassKit::paletteChanged, this, &ScreenModel::refreshIfPossible);
}

void ScreenModel::setController(MatrixController* controller)
{
    if (controller == m_controller)
        return;
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = controller;
    if (controller) {
        for (const auto signal : quietSignals)
            connect(controller, signal, this, &ScreenModel::refreshIfPossible);
    }
    refreshIfPossible();
}

void ScreenModel::refreshIfPossible()
{
    if (m_controller)
        refresh();
}

} // namespace corvane
