#include "Views/SourcePaneModel.h"

#include "Views/PortTexts.h"

namespace corvane {

namespace {

/// What the focused destination is fed by.
std::optional<qint64> feed(const MatrixController& controller)
{
    const auto destination = controller.selectedDestination();
    return destination ? controller.state().source(*destination, controller.primaryLevel()) : std::nullopt;
}

bool isCurrent(const MatrixController& controller, qint64 source)
{
    return (isSourceLed(controller) ? controller.selectedSource() : feed(controller)) == source;
}

bool isPending(const MatrixController& controller, qint64 source)
{
    return !isSourceLed(controller) && controller.takeMode() == TakeMode::confirm
        && controller.pendingSource() == source;
}

QString focusText(const MatrixController& controller)
{
    const auto label = portTexts::labelAt(controller.state().sources, controller.selectedSource());
    return label ? QStringLiteral("Sending %1").arg(*label) : QStringLiteral("Select a source");
}

QString targetText(const MatrixController& controller)
{
    const auto targets = controller.xyTargets();
    if (targets.size() >= 2)
        return QStringLiteral("→ %1 destinations").arg(targets.size());
    const auto target = targets.isEmpty() ? std::nullopt : std::optional(targets.first());
    const auto label = portTexts::labelAt(controller.state().destinations, target);
    return label ? QStringLiteral("→ %1").arg(*label) : QStringLiteral("Select a destination");
}

} // namespace

SourcePaneModel::SourcePaneModel(QObject* parent) : PaneModel(PortKind::source, parent)
{
    refresh();
}

const QList<Port>& SourcePaneModel::shownPorts(const MatrixController& controller) const
{
    return controller.visibleSources();
}

SelectableRow SourcePaneModel::makeRow(const MatrixController& controller, const Port& port) const
{
    return {.index = port.index,
        .title = port.label,
        .detail = portTexts::signal(controller.state(), port.index),
        .isCurrent = isCurrent(controller, port.index),
        .isPending = isPending(controller, port.index)};
}

void SourcePaneModel::tellHeader(const MatrixController& controller, PaneContent& content) const
{
    content.subtitle = isSourceLed(controller) ? focusText(controller) : targetText(controller);
}

void SourcePaneModel::observe(const MatrixController& controller)
{
    connect(&controller, &MatrixController::inputStatusChanged, this, &SourcePaneModel::refreshPort);
    connect(&controller, &MatrixController::crosspointChanged, this, &SourcePaneModel::onCrosspoint);
}

void SourcePaneModel::onCrosspoint(qint64 level, qint64 destination)
{
    if (level == controller()->primaryLevel() && destination == controller()->selectedDestination())
        refresh();
}

void SourcePaneModel::clickPort(MatrixController& controller, qint64 port)
{
    if (isSourceLed(controller))
        controller.focusSource(port);
    else
        controller.chooseSource(port);
}

bool SourcePaneModel::clickToggles(const MatrixController&) const
{
    return false;
}

} // namespace corvane
