#include "Views/List/SourcePaneModel.h"

#include "Views/Shared/PortTexts.h"

namespace corvane {

using namespace Qt::StringLiterals;

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
    return label ? u"Sending %1"_s.arg(*label) : u"Select a source"_s;
}

QString targetText(const MatrixController& controller)
{
    const auto targets = controller.xyTargets();
    if (targets.size() >= 2)
        return u"→ %1 destinations"_s.arg(targets.size());
    const auto target = targets.isEmpty() ? std::nullopt : std::optional(targets.first());
    const auto label = portTexts::labelAt(controller.state().destinations, target);
    return label ? u"→ %1"_s.arg(*label) : u"Select a destination"_s;
}

} // namespace

SourcePaneModel::SourcePaneModel(PaneClicks& clicks, const GlassKit& theme)
    : PaneModel(PortKind::source, clicks, theme)
{
    refresh();
}

const QList<Port>& SourcePaneModel::shownPorts(const MatrixController& controller) const
{
    return controller.visibleSources();
}

SelectableRow SourcePaneModel::makeRow(const MatrixController& controller, const Port& port) const
{
    const auto signal = portTexts::signal(controller.state(), port.index);
    return {.index = port.index,
        .title = port.label,
        .spokenTitle = portTexts::spokenName(port),
        .detail = signal,
        .spokenDetail = signal,
        .isCurrent = isCurrent(controller, port.index),
        .isPending = isPending(controller, port.index)};
}

void SourcePaneModel::fillHeader(MatrixController& controller, PaneContent& content) const
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

std::optional<PaneModel::Sending> SourcePaneModel::sending(
    const MatrixController& controller, qint64 port) const
{
    const auto targets = controller.xyTargets();
    if (isSourceLed(controller) || controller.takeMode() != TakeMode::immediate || targets.isEmpty())
        return std::nullopt;
    return Sending{port, targets};
}

} // namespace corvane
