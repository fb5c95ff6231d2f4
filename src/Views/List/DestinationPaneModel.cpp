#include "Views/List/DestinationPaneModel.h"

#include "Views/Shared/PortTexts.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

bool isGanging(const MatrixController& controller)
{
    return !isSourceLed(controller) && controller.multiSelectMode();
}

bool isCurrent(const MatrixController& controller, qint64 destination, std::optional<qint64> feed)
{
    if (isSourceLed(controller))
        return feed && feed == controller.selectedSource();
    return routing::isTarget(controller.operatorState().selection, destination);
}

bool isPending(const MatrixController& controller, qint64 destination)
{
    if (controller.takeMode() != TakeMode::confirm)
        return false;
    return isSourceLed(controller) ? controller.pendingDestinations().contains(destination)
                                   : controller.pendingDestination() == destination;
}

QList<MenuAction> sourceLedActions(MatrixController& controller)
{
    if (controller.allDestinationsStaged())
        return {{u"Deselect All"_s, u"square.dashed"_s, [&controller] { controller.clearPending(); }}};
    return {
        {u"Select All"_s, u"checkmark.square.fill"_s, [&controller] { controller.selectAllDestinations(); }}};
}

QList<MenuAction> gangActions(MatrixController& controller)
{
    const MenuAction done{u"Done"_s, u"checkmark"_s, [&controller] { controller.setMultiSelectMode(false); }};
    if (controller.allGanged())
        return {
            {u"Deselect All"_s, u"square.dashed"_s, [&controller] { controller.deselectAllInGang(); }}, done};
    return {
        {u"Select All"_s, u"checkmark.square.fill"_s, [&controller] { controller.selectAllInGang(); }}, done};
}

QList<MenuAction> headerActions(MatrixController& controller)
{
    if (isSourceLed(controller))
        return sourceLedActions(controller);
    if (isGanging(controller))
        return gangActions(controller);
    return {{u"Multiple"_s, u"checklist"_s, [&controller] { controller.setMultiSelectMode(true); }}};
}

} // namespace

DestinationPaneModel::DestinationPaneModel(PaneClicks& clicks, const GlassKit& theme)
    : PaneModel(PortKind::destination, clicks, theme)
{
    refresh();
}

const QList<Port>& DestinationPaneModel::shownPorts(const MatrixController& controller) const
{
    return controller.visibleDestinations();
}

SelectableRow DestinationPaneModel::makeRow(const MatrixController& controller, const Port& port) const
{
    const auto& state = controller.state();
    const auto feed = state.source(port.index, controller.primaryLevel());
    const Port* const feeding = portTexts::portAt(state.sources, feed);
    return {.index = port.index,
        .title = port.label,
        .spokenTitle = portTexts::spokenName(port),
        .detail = feeding ? feeding->label : portTexts::noName(),
        .spokenDetail = feeding ? portTexts::spokenName(*feeding) : portTexts::noName(),
        .isCurrent = isCurrent(controller, port.index, feed),
        .isPending = isPending(controller, port.index),
        .locked = state.isLocked(port.index),
        .hasBadge = isGanging(controller)};
}

void DestinationPaneModel::fillHeader(MatrixController& controller, PaneContent& content) const
{
    content.subtitle = subtitle(controller);
    content.subtitleIsPriority = true;
    content.headerActions = headerActions(controller);
}

QString DestinationPaneModel::subtitle(const MatrixController& controller) const
{
    if (!isSourceLed(controller)) {
        const auto count = controller.selectedDestinations().size();
        return count < 2 ? QString() : u"%1 selected"_s.arg(count);
    }
    if (!portTexts::labelAt(controller.state().sources, controller.selectedSource()))
        return u"Pick a source first"_s;
    // Source-led, the current rows are those that the focused source feeds.
    return u"%1 fed"_s.arg(currentCount());
}

void DestinationPaneModel::observe(const MatrixController& controller)
{
    connect(&controller, &MatrixController::lockChanged, this, &DestinationPaneModel::refreshPort);
    connect(&controller, &MatrixController::crosspointChanged, this,
        [this, &controller](qint64 level, qint64 destination) {
            if (level == controller.primaryLevel())
                refreshPort(destination);
        });
}

void DestinationPaneModel::clickPort(MatrixController& controller, qint64 port)
{
    if (isSourceLed(controller))
        controller.assignDestination(port);
    else
        controller.focusDestination(port);
}

std::optional<PaneModel::Sending> DestinationPaneModel::sending(
    const MatrixController& controller, qint64 port) const
{
    const auto source = controller.selectedSource();
    if (!isSourceLed(controller) || controller.takeMode() != TakeMode::immediate || !source)
        return std::nullopt;
    return Sending{*source, {port}};
}

} // namespace corvane
