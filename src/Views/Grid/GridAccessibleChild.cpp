#include "Views/Grid/CrosspointMatrixView.h"
#include "Views/Grid/GridAccessible.h"

namespace corvane {

using namespace Qt::StringLiterals;

GridAccessibleChild::GridAccessibleChild(const GridAccessible& grid, int index, GridPlace place)
    : AccessiblePart(grid, index), m_grid(grid), m_place(place)
{
}

bool GridAccessibleChild::isValid() const
{
    return m_grid.view() && (isField() || m_grid.view()->layout().contains(m_place));
}

QRect GridAccessibleChild::rect() const
{
    if (!isValid())
        return {};
    const GridLayout& layout = m_grid.view()->layout();
    return m_grid.onScreen(isField() ? layout.areaOf({0, 0}) : layout.rectOf(m_place));
}

QString GridAccessibleChild::name() const
{
    const CrosspointGridModel& model = *m_grid.view()->model();
    if (isField())
        return u"Crosspoint grid, %1 sources by %2 destinations"_s.arg(model.sources().size())
            .arg(model.destinations().size());
    if (m_place.isColumnHeader())
        return model.column(m_place.column).label();
    const GridRowView row = model.row(m_place.row);
    return m_place.isRowHeader() ? row.headerLabel() : row.cellLabel(m_place.column);
}

QString GridAccessibleChild::description() const
{
    const CrosspointGridModel& model = *m_grid.view()->model();
    if (isField())
        return u"In Take mode, activate a destination header, then use a source header's Route action"_s;
    // Not every platform passes the help on.
    if (m_place.isRowHeader())
        return help();
    if (m_place.isCell())
        return model.row(m_place.row).cellValue(m_place.column);
    const qint64 source = model.sources().at(m_place.column).index;
    return model.hasSignalStatus(source) ? model.signalHelp(source) : QString();
}

QString GridAccessibleChild::help() const
{
    return isStaged() ? u"Staged"_s : QString();
}

bool GridAccessibleChild::isStaged() const
{
    if (isField())
        return false;
    const CrosspointGridModel& model = *m_grid.view()->model();
    if (m_place.isColumnHeader())
        return model.column(m_place.column).isArmed;
    const GridRowView row = model.row(m_place.row);
    return m_place.isRowHeader() ? row.isPendingDest : row.cellAt(m_place.column).isPending;
}

QAccessible::Role GridAccessibleChild::role() const
{
    return isField() ? QAccessible::Canvas : QAccessible::Button;
}

void GridAccessibleChild::tellState(QAccessible::State& state) const
{
    const CrosspointMatrixView& view = *m_grid.view();
    state.offscreen = !isField() && !view.layout().isInView(m_place);
    state.checkable = m_place.isCell();
    state.checked = m_place.isCell() && view.model()->row(m_place.row).cellAt(m_place.column).isConnected;
    state.selectable = !isField();
    state.selected = isStaged();
}

void GridAccessibleChild::press()
{
    m_grid.view()->model()->actions().click(m_place);
}

QList<MenuAction> GridAccessibleChild::namedActions() const
{
    return m_grid.view()->model()->actions().accessibleActions(m_place);
}

void GridAccessibleChild::takeFocus()
{
    m_grid.view()->forceActiveFocus(Qt::OtherFocusReason);
    m_grid.view()->setFocusPlace(m_place);
    m_grid.view()->showFocusPlace();
}

} // namespace corvane
