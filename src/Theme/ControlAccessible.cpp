#include "Theme/ControlAccessible.h"

#include "Theme/FieldAccessible.h"

#include <QMetaProperty>
#include <QQuickWindow>

namespace corvane {

namespace {

/// What QML says of an item to screen readers; null if it says nothing.
QObject* spokenOf(const QObject& item)
{
    const auto& children = item.children();
    const auto found = std::ranges::find_if(
        children, [](const QObject* child) { return child->inherits("QQuickAccessibleAttached"); });
    return found == children.cend() ? nullptr : *found;
}

bool isTold(const QQuickItem& item)
{
    const QObject* const spoken = spokenOf(item);
    return spoken && !spoken->property("ignored").toBool();
}

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    auto* const item = qobject_cast<QQuickItem*>(object);
    if (!item || !spokenOf(*item))
        return nullptr;
    // Qt owns what a factory returns.
    if (className == QLatin1String("QQuickAbstractButton"))
        return std::make_unique<ControlAccessible>(*item).release();
    if (className == QLatin1String("QQuickTextInput"))
        return std::make_unique<FieldAccessible>(*item).release();
    return nullptr;
}

/// Tells screen readers when a control can be used and when no longer.
class UseNews : public QObject {
    Q_OBJECT

public:
    explicit UseNews(QQuickItem& control) : m_control(control)
    {
        const auto* const type = control.metaObject();
        const auto slot = staticMetaObject.method(staticMetaObject.indexOfSlot("tell()"));
        for (const char* const property : {"enabled", "available"})
            if (const int index = type->indexOfProperty(property); index >= 0)
                connect(&control, type->property(index).notifySignal(), this, slot);
    }

public slots:
    void tell()
    {
        QAccessible::State changed;
        changed.disabled = true;
        QAccessibleStateChangeEvent event(&m_control, changed);
        QAccessible::updateAccessibility(&event);
    }

private:
    QQuickItem& m_control;
};

} // namespace

void ControlAccessible::install()
{
    // Qt keeps one of each.
    QAccessible::installFactory(makeInterface);
}

ControlAccessible::ControlAccessible(QQuickItem& control)
    : QAccessibleObject(&control), m_news(std::make_unique<UseNews>(control))
{
}

QQuickItem& ControlAccessible::control() const
{
    return *static_cast<QQuickItem*>(object());
}

QVariant ControlAccessible::said(const char* property) const
{
    const QObject* const spoken = isValid() ? spokenOf(control()) : nullptr;
    return spoken ? spoken->property(property) : QVariant();
}

bool ControlAccessible::canBeUsed() const
{
    const auto available = control().property("available");
    return control().isEnabled() && (!available.isValid() || available.toBool());
}

QWindow* ControlAccessible::window() const
{
    return isValid() ? control().window() : nullptr;
}

QAccessibleInterface* ControlAccessible::parent() const
{
    for (QQuickItem* item = isValid() ? control().parentItem() : nullptr; item; item = item->parentItem()) {
        if (!isTold(*item))
            continue;
        if (QAccessibleInterface* const parent = QAccessible::queryAccessibleInterface(item))
            return parent;
    }
    return QAccessible::queryAccessibleInterface(window());
}

QRect ControlAccessible::rect() const
{
    if (!window())
        return {};
    return QRectF(control().mapToGlobal(QPointF()), control().size()).toRect();
}

QAccessible::Role ControlAccessible::role() const
{
    const auto told = static_cast<QAccessible::Role>(said("role").toInt());
    return told == QAccessible::NoRole ? QAccessible::Button : told;
}

QAccessible::State ControlAccessible::state() const
{
    QAccessible::State state;
    if (!isValid())
        return state;
    const QQuickWindow* const shownIn = control().window();
    state.invisible = !shownIn || !shownIn->isVisible() || !control().isVisible() || control().opacity() <= 0;
    state.offscreen = shownIn && !shownIn->geometry().intersects(rect());
    state.disabled = !canBeUsed();
    state.focusable = control().activeFocusOnTab();
    state.focused = control().hasActiveFocus();
    state.checkable = control().property("checkable").toBool() || said("checkable").toBool();
    state.checked = control().property("checked").toBool() || said("checked").toBool();
    state.selectable = said("selectable").toBool();
    state.selected = said("selected").toBool();
    return state;
}

QString ControlAccessible::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return said("name").toString();
    case QAccessible::Description:
        return said("description").toString();
    default:
        return {};
    }
}

void* ControlAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList ControlAccessible::actionNames() const
{
    if (!isValid())
        return {};
    QStringList names{pressAction()};
    if (control().property("checkable").toBool())
        names.append(toggleAction());
    if (control().activeFocusOnTab())
        names.append(setFocusAction());
    return names;
}

void ControlAccessible::doAction(const QString& name)
{
    if (!isValid() || !canBeUsed())
        return;
    if (name == setFocusAction())
        control().forceActiveFocus(Qt::TabFocusReason);
    else if (name == pressAction())
        QMetaObject::invokeMethod(spokenOf(control()), "pressAction");
    else if (name == toggleAction())
        QMetaObject::invokeMethod(spokenOf(control()), "toggleAction");
}

} // namespace corvane

#include "ControlAccessible.moc"
