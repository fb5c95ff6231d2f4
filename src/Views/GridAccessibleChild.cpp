#include "Views/GridAccessible.h"

#include "Views/CrosspointMatrixView.h"

#include <algorithm>

namespace corvane {

namespace {

QAccessible::State difference(QAccessible::State before, QAccessible::State now)
{
    QAccessible::State changed;
    changed.checked = before.checked != now.checked;
    changed.selected = before.selected != now.selected;
    return changed;
}

/// All that a row header shows, in one text.
QString combined(const DestinationRowHeader& header)
{
    QStringList parts{header.dest.label, QString::number(header.dest.index + 1), header.routedLabel};
    if (header.locked)
        parts.append(QStringLiteral("locked"));
    return parts.join(QStringLiteral(", "));
}

} // namespace

GridAccessibleChild::GridAccessibleChild(const GridAccessible& grid, GridPlace place)
    : m_grid(grid), m_place(place)
{
    remember();
}

void GridAccessibleChild::remember()
{
    m_toldName = name();
    m_toldDescription = description();
    m_toldState = state();
}

void GridAccessibleChild::tellOfChanges()
{
    const QString nameBefore = m_toldName;
    const QString descriptionBefore = m_toldDescription;
    const QAccessible::State changed = difference(m_toldState, state());
    remember();
    if (m_toldName != nameBefore)
        m_grid.tell(QAccessibleEvent(this, QAccessible::NameChanged));
    if (m_toldDescription != descriptionBefore)
        m_grid.tell(QAccessibleEvent(this, QAccessible::DescriptionChanged));
    if (changed.checked || changed.selected)
        m_grid.tell(QAccessibleStateChangeEvent(this, changed));
}

bool GridAccessibleChild::isValid() const
{
    return m_grid.view() && (isField() || m_grid.view()->layout().contains(m_place));
}

QAccessibleInterface* GridAccessibleChild::parent() const
{
    return m_grid.view() ? QAccessible::queryAccessibleInterface(m_grid.view()) : nullptr;
}

QRect GridAccessibleChild::rect() const
{
    if (!isValid())
        return {};
    const GridLayout& layout = m_grid.view()->layout();
    const QRectF area = layout.areaOf(isField() ? GridPlace{0, 0} : m_place);
    return m_grid.onScreen(isField() ? area : layout.rectOf(m_place));
}

QString GridAccessibleChild::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name)
        return name();
    return kind == QAccessible::Description ? description() : QString();
}

QString GridAccessibleChild::name() const
{
    if (!isValid())
        return {};
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
    if (!isValid() || m_place.isRowHeader())
        return {};
    const CrosspointGridModel& model = m_grid.view()->model();
    if (isField())
        return CanvasCellField::accessibleHint();
    if (m_place.isCell())
        return model.row(m_place.row).cellValue(m_place.column);
    const qint64 source = model.sources().at(m_place.column).index;
    return model.hasSignalStatus(source) ? model.signalHelp(source) : QString();
}

QAccessible::Role GridAccessibleChild::role() const
{
    return isField() ? QAccessible::Canvas : QAccessible::Button;
}

QAccessible::State GridAccessibleChild::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    const CrosspointMatrixView& view = *m_grid.view();
    state.invisible = !view.isVisible();
    state.disabled = !view.isEnabled();
    state.focusable = true;
    state.focused = m_grid.hasFocus(m_place);
    state.offscreen = !isField() && !view.layout().areaOf(m_place).intersects(view.layout().rectOf(m_place));
    state.checkable = m_place.isCell();
    state.checked = m_place.isCell() && view.model().row(m_place.row).cellAt(m_place.column).isConnected;
    state.selectable = m_place.isRowHeader();
    state.selected = m_place.isRowHeader() && view.model().row(m_place.row).isPendingDest;
    return state;
}

void* GridAccessibleChild::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QList<PortAction> GridAccessibleChild::actions() const
{
    if (!isValid() || isField())
        return {};
    QList<PortAction> actions{{PortAction::Kind::press, pressAction(), {}}};
    return actions + m_grid.view()->actions().accessibleActions(m_place);
}

QStringList GridAccessibleChild::actionNames() const
{
    QStringList names;
    for (const PortAction& action : actions())
        names.append(action.name);
    names.append(setFocusAction());
    return names;
}

void GridAccessibleChild::doAction(const QString& name)
{
    if (!isValid())
        return;
    if (name == setFocusAction()) {
        m_grid.view()->forceActiveFocus(Qt::OtherFocusReason);
        m_grid.view()->setFocusPlace(m_place);
        return;
    }
    const QList<PortAction> offered = actions();
    const auto wanted = std::ranges::find(offered, name, &PortAction::name);
    if (wanted != offered.cend())
        m_grid.view()->actions().perform(wanted->kind, m_place);
}

QStringList GridAccessibleChild::keyBindingsForAction(const QString&) const
{
    return {};
}

} // namespace corvane
