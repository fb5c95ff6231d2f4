#include "Views/Grid/GridActions.h"

#include "Views/Grid/CrosspointGridModel.h"

#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

GridActions::GridActions(const CrosspointGridModel& model) : m_model(model) { }

void GridActions::click(GridPlace place)
{
    if (!controller())
        return;
    if (place.isCell())
        routeOrStage(sourceAt(place), destinationAt(place));
    else if (place.isRowHeader())
        stageDestination(destinationAt(place));
}

void GridActions::routeOrStage(qint64 source, qint64 destination)
{
    if (controller()->takeMode() == TakeMode::immediate)
        controller()->take(source, destination);
    else
        controller()->stageRoute(source, destination);
}

void GridActions::stageDestination(qint64 destination)
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
    rename(place);
}

void GridActions::rename(GridPlace place)
{
    if (controller())
        controller()->beginRename(portAt(place).kind, portAt(place).index);
}

void GridActions::toggleLock(GridPlace place)
{
    if (controller() && !place.isColumnHeader())
        controller()->toggleLock(destinationAt(place));
}

void GridActions::routeToSelectedDestination(GridPlace place)
{
    if (const auto destination = controller() ? controller()->pendingDestination() : std::nullopt)
        routeOrStage(sourceAt(place), *destination);
}

QList<MenuAction> GridActions::menu(GridPlace place) const
{
    if (!controller() || place.isCell())
        return {};
    return portMenu(*controller(), portAt(place));
}

QList<MenuAction> GridActions::accessibleActions(GridPlace place)
{
    if (!place.isColumnHeader())
        return menu(place);
    return {
        {u"Route to Selected Destination"_s, {}, [this, place] { routeToSelectedDestination(place); }},
        {u"Rename"_s, {}, [this, place] { rename(place); }},
    };
}

PortRef GridActions::portAt(GridPlace place) const
{
    if (place.isColumnHeader())
        return {PortKind::source, sourceAt(place)};
    return {PortKind::destination, destinationAt(place)};
}

qint64 GridActions::sourceAt(GridPlace place) const
{
    return m_model.sources().at(place.column).index;
}

qint64 GridActions::destinationAt(GridPlace place) const
{
    return m_model.destinations().at(place.row).index;
}

MatrixController* GridActions::controller() const
{
    return m_model.controller();
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
