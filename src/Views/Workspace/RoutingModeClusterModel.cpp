#include "Views/Workspace/RoutingModeClusterModel.h"

namespace corvane {

namespace {

QString tip(TakeMode mode)
{
    switch (mode) {
    case TakeMode::immediate:
        return QStringLiteral("Routes the moment you choose a source.");
    case TakeMode::confirm:
        return QStringLiteral("Stage a route, then press Take to cut it.");
    }
    return {};
}

QString tip(RoutingDirection direction)
{
    switch (direction) {
    case RoutingDirection::destinationLed:
        return QStringLiteral("Pick a destination, then a source.");
    case RoutingDirection::sourceLed:
        return QStringLiteral("Pick a source, then tap destinations to send it to each.");
    }
    return {};
}

} // namespace

QStringList RoutingModeClusterModel::takeModeTexts()
{
    return {QStringLiteral("Direct"), QStringLiteral("Take")};
}

QStringList RoutingModeClusterModel::takeModeSymbols()
{
    return {QStringLiteral("bolt.fill"), QStringLiteral("checkmark.circle")};
}

QStringList RoutingModeClusterModel::directionTexts()
{
    return {QStringLiteral("X-Y"), QStringLiteral("1 → Many")};
}

void RoutingModeClusterModel::chooseTakeMode(int position)
{
    if (controller())
        controller()->setTakeMode(position == 0 ? TakeMode::immediate : TakeMode::confirm);
}

void RoutingModeClusterModel::chooseDirection(int position)
{
    if (controller())
        controller()->setDirection(
            position == 0 ? RoutingDirection::destinationLed : RoutingDirection::sourceLed);
}

void RoutingModeClusterModel::refresh()
{
    const auto mode = controller()->takeMode();
    const auto direction = controller()->routingDirection();
    replace(m_content,
        {.takeMode = static_cast<int>(mode),
            .takeModeTip = tip(mode),
            .showsDirection = controller()->viewMode() == RouteViewMode::list,
            .direction = static_cast<int>(direction),
            .directionTip = tip(direction)});
}

} // namespace corvane
