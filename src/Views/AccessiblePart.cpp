#include "Views/AccessiblePart.h"

#include "Views/AccessibleSurface.h"

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

} // namespace

void AccessiblePart::remember()
{
    m_toldName = text(QAccessible::Name);
    m_toldDescription = text(QAccessible::Description);
    m_toldState = state();
}

void AccessiblePart::tellOfChanges()
{
    const QString nameBefore = m_toldName;
    const QString descriptionBefore = m_toldDescription;
    const QAccessible::State changed = difference(m_toldState, state());
    remember();
    if (m_toldName != nameBefore)
        m_surface.tell(QAccessibleEvent(this, QAccessible::NameChanged));
    if (m_toldDescription != descriptionBefore)
        m_surface.tell(QAccessibleEvent(this, QAccessible::DescriptionChanged));
    if (changed.checked || changed.selected)
        m_surface.tell(QAccessibleStateChangeEvent(this, changed));
}

QWindow* AccessiblePart::window() const
{
    return m_surface.window();
}

QAccessibleInterface* AccessiblePart::parent() const
{
    return m_surface.item() ? QAccessible::queryAccessibleInterface(m_surface.item()) : nullptr;
}

QString AccessiblePart::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (kind == QAccessible::Name)
        return name();
    return kind == QAccessible::Description ? description() : QString();
}

QAccessible::State AccessiblePart::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.invisible = !m_surface.item()->isVisible();
    state.disabled = !m_surface.item()->isEnabled();
    state.focusable = true;
    state.focused = m_surface.hasFocus(m_index);
    tellState(state);
    return state;
}

void* AccessiblePart::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QList<PortAction> AccessiblePart::actions() const
{
    if (!isValid() || !canBePressed())
        return {};
    return QList<PortAction>{{PortAction::Kind::press, pressAction(), {}}} + namedActions();
}

QStringList AccessiblePart::actionNames() const
{
    QStringList names;
    for (const PortAction& action : actions())
        names.append(action.name);
    names.append(setFocusAction());
    return names;
}

void AccessiblePart::doAction(const QString& name)
{
    if (!isValid())
        return;
    if (name == setFocusAction()) {
        takeFocus();
        return;
    }
    const QList<PortAction> offered = actions();
    const auto wanted = std::ranges::find(offered, name, &PortAction::name);
    if (wanted != offered.cend())
        perform(wanted->kind);
}

QStringList AccessiblePart::keyBindingsForAction(const QString&) const
{
    return {};
}

} // namespace corvane
