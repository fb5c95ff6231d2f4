#include "Views/Workspace/DeviceHeaderModel.h"

namespace corvane {

using namespace Qt::StringLiterals;

void DeviceHeaderModel::refresh()
{
    const auto& connection = controller()->connection();
    const auto& model = controller()->state().model;
    replace(m_content,
        {.symbol = symbolName(connection.vendor),
            .tint = routerColor(connection, palette()),
            .title = model.isEmpty() ? displayName(connection.vendor) : model,
            .specs = specs(),
            .status = statusLook(controller()->status(), palette())});
}

QString DeviceHeaderModel::specs() const
{
    const auto& state = controller()->state();
    const auto sources = QString::number(state.sources.size());
    const auto destinations = QString::number(state.destinations.size());
    const auto level = controller()->levelName(controller()->primaryLevel());
    const auto panel = controller()->activePanel();
    if (!panel)
        return u"%1 in × %2 out · %3"_s.arg(sources, destinations, level);
    const auto visibleSources = QString::number(controller()->visibleSources().size());
    const auto visibleDestinations = QString::number(controller()->visibleDestinations().size());
    return u"%1 · %2 of %3 in × %4 of %5 out · %6"_s.arg(
        panel->name, visibleSources, sources, visibleDestinations, destinations, level);
}

} // namespace corvane
