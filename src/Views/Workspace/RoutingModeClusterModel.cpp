#include "Views/Workspace/RoutingModeClusterModel.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString tip(TakeMode mode)
{
    switch (mode) {
    case TakeMode::immediate:
        return u"Routes the moment you choose a source."_s;
    case TakeMode::confirm:
        return u"Stage a route, then press Take to cut it."_s;
    }
    return {};
}

QString tip(RoutingDirection direction)
{
    switch (direction) {
    case RoutingDirection::destinationLed:
        return u"Pick a destination, then a source."_s;
    case RoutingDirection::sourceLed:
        return u"Pick a source, then tap destinations to send it to each."_s;
    }
    return {};
}

} // namespace

QStringList RoutingModeClusterModel::takeModeTexts()
{
    return {u"Direct"_s, u"Take"_s};
}

QStringList RoutingModeClusterModel::takeModeSymbols()
{
    return {u"bolt.fill"_s, u"checkmark.circle"_s};
}

QStringList RoutingModeClusterModel::directionTexts()
{
    return {u"X-Y"_s, u"1 → Many"_s};
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
