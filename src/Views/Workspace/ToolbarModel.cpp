#include "Views/Workspace/ToolbarModel.h"

namespace corvane {

QStringList ToolbarModel::viewModeTexts()
{
    return {QStringLiteral("Crosspoint"), QStringLiteral("Dropdown")};
}

void ToolbarModel::chooseViewMode(int position)
{
    if (controller())
        controller()->setViewMode(position == 0 ? RouteViewMode::matrix : RouteViewMode::list);
}

ToolbarFit ToolbarModel::fit(double available, double whole, double savedByButtons)
{
    return {.showsPanelText = whole - savedByButtons <= available, .showsButtonTexts = whole <= available};
}

void ToolbarModel::refresh()
{
    const auto panel = controller()->activePanel();
    replace(m_content,
        {.isShown = controller()->isConnected(),
            .panelText = panel ? panel->name : QStringLiteral("Full Router"),
            .panelSymbol =
                panel ? QStringLiteral("rectangle.grid.1x2") : QStringLiteral("rectangle.grid.3x2"),
            .viewMode = static_cast<int>(controller()->viewMode())});
}

} // namespace corvane
