#include "Views/ActionRowAccessible.h"

#include "Views/ActionRow.h"

#include <QQmlProperty>
#include <QQuickWindow>

#include <memory>

namespace corvane {

namespace {

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(ActionRow::staticMetaObject.className()))
        return nullptr;
    // Qt owns what a factory returns.
    return std::make_unique<ActionRowAccessible>(*qobject_cast<ActionRow*>(object)).release();
}

/// What `Accessible` says of an item.
QVariant said(QQuickItem* item, const char* property)
{
    const auto name = QStringLiteral("Accessible.") + QLatin1String(property);
    return item ? QQmlProperty(item, name, qmlContext(item)).read() : QVariant();
}

/// An item that says nothing itself stands aside for its children.
void collect(const QQuickItem& item, QList<QAccessibleInterface*>& speaking)
{
    const auto children = item.childItems();
    for (QQuickItem* const child : children) {
        auto* const interface = QAccessible::queryAccessibleInterface(child);
        if (interface && !said(child, "ignored").toBool())
            speaking.append(interface);
        else
            collect(*child, speaking);
    }
}

QList<QAccessibleInterface*> speakingChildren(const QQuickItem* item)
{
    QList<QAccessibleInterface*> speaking;
    if (item)
        collect(*item, speaking);
    return speaking;
}

} // namespace

void ActionRowAccessible::install()
{
    // Qt keeps one of each.
    QAccessible::installFactory(makeInterface);
}

ActionRowAccessible::ActionRowAccessible(ActionRow& row) : QAccessibleObject(&row) { }

ActionRow* ActionRowAccessible::row() const
{
    return qobject_cast<ActionRow*>(object());
}

QWindow* ActionRowAccessible::window() const
{
    return row() ? row()->window() : nullptr;
}

QAccessibleInterface* ActionRowAccessible::parent() const
{
    for (QQuickItem* item = row() ? row()->parentItem() : nullptr; item; item = item->parentItem())
        if (QAccessibleInterface* const parent = QAccessible::queryAccessibleInterface(item))
            return parent;
    return QAccessible::queryAccessibleInterface(window());
}

int ActionRowAccessible::childCount() const
{
    return static_cast<int>(speakingChildren(row()).size());
}

QAccessibleInterface* ActionRowAccessible::child(int index) const
{
    return speakingChildren(row()).value(index);
}

int ActionRowAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    return static_cast<int>(speakingChildren(row()).indexOf(child));
}

QRect ActionRowAccessible::rect() const
{
    return row() ? QRectF(row()->mapToGlobal(QPointF()), row()->size()).toRect() : QRect();
}

QString ActionRowAccessible::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return said(row(), "name").toString();
    case QAccessible::Description:
        return said(row(), "description").toString();
    default:
        return {};
    }
}

QAccessible::Role ActionRowAccessible::role() const
{
    return static_cast<QAccessible::Role>(said(row(), "role").toInt());
}

QAccessible::State ActionRowAccessible::state() const
{
    QAccessible::State state;
    state.invalid = !row();
    if (state.invalid)
        return state;
    state.invisible = !row()->isVisible();
    state.disabled = !row()->isEnabled();
    state.focusable = said(row(), "focusable").toBool();
    state.focused = row()->hasActiveFocus();
    state.selectable = said(row(), "selectable").toBool();
    state.selected = said(row(), "selected").toBool();
    return state;
}

void* ActionRowAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList ActionRowAccessible::actionNames() const
{
    return row() ? QStringList{pressAction()} + row()->actionNames() : QStringList();
}

void ActionRowAccessible::doAction(const QString& name)
{
    if (!row())
        return;
    if (name == pressAction())
        emit row()->pressAsked();
    else if (const auto position = row()->actionNames().indexOf(name); position >= 0)
        emit row()->actionAsked(static_cast<int>(position));
}

QStringList ActionRowAccessible::keyBindingsForAction(const QString&) const
{
    return {};
}

} // namespace corvane
