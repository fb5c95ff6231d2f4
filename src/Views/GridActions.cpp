#include "Views/GridActions.h"

#include <utility>

namespace corvane {

GridActions::GridActions(const CrosspointGridModel& model) : m_model(model) { }

void GridActions::click(GridPlace place)
{
    if (!controller())
        return;
    if (place.isCell())
        routeOrStage(sourceAt(place), destinationAt(place));
    else if (place.isRowHeader())
        aim(destinationAt(place));
}

void GridActions::routeOrStage(qint64 source, qint64 destination)
{
    if (controller()->takeMode() == TakeMode::immediate)
        controller()->take(source, destination);
    else
        stage({destination, source, {}});
}

void GridActions::aim(qint64 destination)
{
    m_beforeClick = staging();
    controller()->selectDestination(destination);
}

void GridActions::doubleClick(GridPlace place)
{
    if (!controller() || place.isCell())
        return;
    const auto before = std::exchange(m_beforeClick, std::nullopt);
    if (before && place.isRowHeader() && controller()->takeMode() == TakeMode::confirm)
        stage(*before);
    perform(PortAction::Kind::rename, place);
}

void GridActions::perform(PortAction::Kind kind, GridPlace place)
{
    if (!controller())
        return;
    switch (kind) {
    case PortAction::Kind::press:
        click(place);
        return;
    case PortAction::Kind::routeToSelectedDestination:
        if (const auto destination = controller()->pendingDestination())
            routeOrStage(sourceAt(place), *destination);
        return;
    case PortAction::Kind::rename:
        controller()->beginRename(portAt(place).kind, portAt(place).index);
        return;
    case PortAction::Kind::toggleLock:
        controller()->toggleLock(destinationAt(place));
        return;
    case PortAction::Kind::toggleInGang:
        return;
    }
}

void GridActions::take()
{
    if (controller())
        controller()->confirmTake();
}

QList<PortAction> GridActions::menu(GridPlace place) const
{
    if (!controller() || place.isCell())
        return {};
    return portMenu(*controller(), portAt(place));
}

QList<PortAction> GridActions::accessibleActions(GridPlace place) const
{
    using Kind = PortAction::Kind;
    if (!place.isColumnHeader())
        return menu(place);
    return {
        {Kind::routeToSelectedDestination, QStringLiteral("Route to Selected Destination"), {}},
        {Kind::rename, QStringLiteral("Rename"), {}},
    };
}

PortRef GridActions::portAt(GridPlace place) const
{
    if (place.isColumnHeader())
        return {PortKind::source, sourceAt(place)};
    return {PortKind::destination, destinationAt(place)};
}

Staging GridActions::staging() const
{
    return {controller()->pendingDestination(), controller()->pendingSource(),
        controller()->pendingDestinations()};
}

void GridActions::stage(const Staging& staging)
{
    controller()->setPendingDestinations(staging.destinations);
    controller()->setPendingDestination(staging.destination);
    controller()->setPendingSource(staging.source);
}

} // namespace corvane
