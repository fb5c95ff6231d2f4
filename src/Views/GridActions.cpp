#include "Views/GridActions.h"

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
    if (place.isRowHeader() && controller()->takeMode() == TakeMode::confirm)
        stage(m_beforeClick);
    rename(place);
}

void GridActions::rename(GridPlace place)
{
    if (place.isColumnHeader())
        controller()->beginRename(PortKind::source, sourceAt(place));
    else
        controller()->beginRename(PortKind::destination, destinationAt(place));
}

void GridActions::perform(GridAction::Kind kind, GridPlace place)
{
    if (!controller())
        return;
    switch (kind) {
    case GridAction::Kind::press:
        click(place);
        return;
    case GridAction::Kind::routeToSelectedDestination:
        if (const auto destination = controller()->pendingDestination())
            routeOrStage(sourceAt(place), *destination);
        return;
    case GridAction::Kind::renameSource:
        controller()->beginRename(PortKind::source, sourceAt(place));
        return;
    case GridAction::Kind::renameDestination:
        controller()->beginRename(PortKind::destination, destinationAt(place));
        return;
    case GridAction::Kind::toggleLock:
        controller()->toggleLock(destinationAt(place));
        return;
    }
}

void GridActions::take()
{
    if (controller())
        controller()->confirmTake();
}

QList<GridAction> GridActions::menu(GridPlace place) const
{
    using Kind = GridAction::Kind;
    if (!controller() || place.isCell())
        return {};
    if (place.isColumnHeader())
        return {{Kind::renameSource, QStringLiteral("Rename Source…"), QStringLiteral("pencil")}};
    const bool isLocked = controller()->state().isLocked(destinationAt(place));
    return {
        {Kind::renameDestination, QStringLiteral("Rename Destination…"), QStringLiteral("pencil")},
        {Kind::toggleLock, isLocked ? QStringLiteral("Unlock") : QStringLiteral("Lock"),
            isLocked ? QStringLiteral("lock.open") : QStringLiteral("lock")},
    };
}

QList<GridAction> GridActions::accessibleActions(GridPlace place) const
{
    using Kind = GridAction::Kind;
    if (!place.isColumnHeader())
        return menu(place);
    return {
        {Kind::routeToSelectedDestination, QStringLiteral("Route to Selected Destination"), {}},
        {Kind::renameSource, QStringLiteral("Rename"), {}},
    };
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
