#include "Views/Shared/AccessiblePart.h"

#include "Views/Shared/AccessibleSurface.h"

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
    m_told = {text(QAccessible::Name), text(QAccessible::Description), text(QAccessible::Help), state()};
}

void AccessiblePart::tellOfChanges()
{
    const Told before = m_told;
    remember();
    if (m_told.name != before.name)
        m_surface.tell(QAccessibleEvent(this, QAccessible::NameChanged));
    if (m_told.description != before.description)
        m_surface.tell(QAccessibleEvent(this, QAccessible::DescriptionChanged));
    if (m_told.help != before.help)
        m_surface.tell(QAccessibleEvent(this, QAccessible::HelpChanged));
    const QAccessible::State changed = difference(before.state, m_told.state);
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
    if (kind == QAccessible::Help)
        return help();
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

QStringList AccessiblePart::actionNames() const
{
    QStringList names;
    if (isValid() && canBePressed()) {
        names.append(pressAction());
        for (const auto& action : namedActions())
            names.append(action.text);
    }
    names.append(setFocusAction());
    return names;
}

void AccessiblePart::doAction(const QString& name)
{
    if (!isValid())
        return;
    if (name == setFocusAction())
        takeFocus();
    else if (canBePressed() && name == pressAction())
        press();
    else if (canBePressed())
        runAction(namedActions(), name);
}

QStringList AccessiblePart::keyBindingsForAction(const QString&) const
{
    return {};
}

} // namespace corvane
