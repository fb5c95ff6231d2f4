#include "Views/CrosspointMatrixView.h"
#include "Views/GridAccessible.h"

namespace corvane {

namespace {

/// All that a row header shows, in one text.
QString combined(const DestinationRowHeader& header)
{
    QStringList parts{header.dest.label, QString::number(header.dest.index + 1), header.routedLabel};
    if (header.locked)
        parts.append(QStringLiteral("locked"));
    return parts.join(QStringLiteral(", "));
}

} // namespace

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
    const CrosspointGridModel& model = m_grid.view()->model();
    if (isField())
        return m_grid.view()->layout().field.accessibleLabel();
    if (m_place.isColumnHeader())
        return model.sources().at(m_place.column).label;
    const GridRowView row = model.row(m_place.row);
    return m_place.isRowHeader() ? combined(row.header()) : row.cellLabel(m_place.column);
}

QString GridAccessibleChild::description() const
{
    const CrosspointGridModel& model = m_grid.view()->model();
    if (isField())
        return CanvasCellField::accessibleHint();
    if (m_place.isRowHeader())
        return {};
    if (m_place.isCell())
        return model.row(m_place.row).cellValue(m_place.column);
    const qint64 source = model.sources().at(m_place.column).index;
    return model.hasSignalStatus(source) ? model.signalHelp(source) : QString();
}

QAccessible::Role GridAccessibleChild::role() const
{
    return isField() ? QAccessible::Canvas : QAccessible::Button;
}

void GridAccessibleChild::tellState(QAccessible::State& state) const
{
    const CrosspointMatrixView& view = *m_grid.view();
    state.offscreen = !isField() && !view.layout().areaOf(m_place).intersects(view.layout().rectOf(m_place));
    state.checkable = m_place.isCell();
    state.checked = m_place.isCell() && view.model().row(m_place.row).cellAt(m_place.column).isConnected;
    state.selectable = m_place.isRowHeader();
    state.selected = m_place.isRowHeader() && view.model().row(m_place.row).isPendingDest;
}

QList<PortAction> GridAccessibleChild::namedActions() const
{
    return m_grid.view()->actions().accessibleActions(m_place);
}

void GridAccessibleChild::perform(PortAction::Kind kind)
{
    m_grid.view()->actions().perform(kind, m_place);
}

void GridAccessibleChild::takeFocus()
{
    m_grid.view()->forceActiveFocus(Qt::OtherFocusReason);
    m_grid.view()->setFocusPlace(m_place);
}

} // namespace corvane
