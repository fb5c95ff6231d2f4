#include "Views/DestinationPaneModel.h"

#include "Views/PortTexts.h"

namespace corvane {

namespace {

bool isGanging(const MatrixController& controller)
{
    return !isSourceLed(controller) && controller.multiSelectMode();
}

bool isCurrent(const MatrixController& controller, qint64 destination, std::optional<qint64> feed)
{
    if (isSourceLed(controller))
        return feed && feed == controller.selectedSource();
    return controller.isXYTarget(destination);
}

bool isPending(const MatrixController& controller, qint64 destination)
{
    if (controller.takeMode() != TakeMode::confirm)
        return false;
    return isSourceLed(controller) ? controller.pendingDestinations().contains(destination)
                                   : controller.pendingDestination() == destination;
}

QList<PaneAction> sourceLedActions(const MatrixController& controller)
{
    if (controller.allDestinationsStaged())
        return {{QStringLiteral("Deselect All"), QStringLiteral("square.dashed"),
            [](MatrixController& c) { c.clearPending(); }}};
    return {{QStringLiteral("Select All"), QStringLiteral("checkmark.square.fill"),
        [](MatrixController& c) { c.selectAllDestinations(); }}};
}

QList<PaneAction> gangActions(const MatrixController& controller)
{
    const PaneAction done{QStringLiteral("Done"), QStringLiteral("checkmark"),
        [](MatrixController& c) { c.setMultiSelectMode(false); }};
    if (controller.allGanged())
        return {{QStringLiteral("Deselect All"), QStringLiteral("square.dashed"),
                    [](MatrixController& c) { c.deselectAllInGang(); }},
            done};
    return {{QStringLiteral("Select All"), QStringLiteral("checkmark.square.fill"),
                [](MatrixController& c) { c.selectAllInGang(); }},
        done};
}

QList<PaneAction> headerActions(const MatrixController& controller)
{
    if (isSourceLed(controller))
        return sourceLedActions(controller);
    if (isGanging(controller))
        return gangActions(controller);
    return {{QStringLiteral("Multiple"), QStringLiteral("checklist"),
        [](MatrixController& c) { c.setMultiSelectMode(true); }}};
}

} // namespace

DestinationPaneModel::DestinationPaneModel(QObject* parent) : PaneModel(PortKind::destination, parent)
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
    return {.index = port.index,
        .title = port.label,
        .detail = portTexts::labelAt(state.sources, feed).value_or(portTexts::noName()),
        .isCurrent = isCurrent(controller, port.index, feed),
        .isPending = isPending(controller, port.index),
        .locked = state.isLocked(port.index),
        .hasBadge = isGanging(controller)};
}

void DestinationPaneModel::tellHeader(const MatrixController& controller, PaneContent& content) const
{
    content.subtitle = subtitle(controller);
    content.subtitleIsPriority = true;
    content.headerActions = headerActions(controller);
}

QString DestinationPaneModel::subtitle(const MatrixController& controller) const
{
    if (!isSourceLed(controller)) {
        const auto count = controller.selectedDestinations().size();
        return count < 2 ? QString() : QStringLiteral("%1 selected").arg(count);
    }
    if (!portTexts::labelAt(controller.state().sources, controller.selectedSource()))
        return QStringLiteral("Pick a source first");
    // Source-led, the current rows are those that the focused source feeds.
    return QStringLiteral("%1 fed").arg(currentCount());
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

bool DestinationPaneModel::clickToggles(const MatrixController& controller) const
{
    return isSourceLed(controller) ? controller.takeMode() == TakeMode::confirm : isGanging(controller);
}

} // namespace corvane
