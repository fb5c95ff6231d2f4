#include "Views/Workspace/ToolbarModel.h"

namespace corvane {

using namespace Qt::StringLiterals;

QStringList ToolbarModel::viewModeTexts()
{
    return {u"Crosspoint"_s, u"Dropdown"_s};
}

void ToolbarModel::chooseViewMode(int position)
{
    if (controller())
        controller()->setViewMode(position == 0 ? RouteViewMode::matrix : RouteViewMode::list);
}

void ToolbarModel::refresh()
{
    const auto panel = controller()->activePanel();
    replace(m_content,
        {.isShown = controller()->isConnected(),
            .panelText = panel ? panel->name : u"Full Router"_s,
            .panelSymbol = panel ? u"rectangle.grid.1x2"_s : u"rectangle.grid.3x2"_s,
            .viewMode = static_cast<int>(controller()->viewMode())});
}

} // namespace corvane
