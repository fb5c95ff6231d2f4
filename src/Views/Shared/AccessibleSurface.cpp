#include "Views/Shared/AccessibleSurface.h"

#include <QQuickWindow>

namespace corvane {

AccessibleSurface::AccessibleSurface(QQuickItem& item, Tell tell)
    : QAccessibleObject(&item), m_item(&item), m_tell(std::move(tell))
{
    QObject::connect(&item, &QQuickItem::activeFocusChanged, &m_context, [this] { tellOfFocus(); });
}

AccessibleSurface::~AccessibleSurface()
{
    deleteParts();
}

void AccessibleSurface::deleteParts()
{
    for (const QAccessible::Id id : std::exchange(m_parts, {}))
        QAccessible::deleteAccessibleInterface(id);
}

void AccessibleSurface::forgetParts()
{
    deleteParts();
    if (m_item)
        tell(QAccessibleEvent(m_item, QAccessible::ObjectReorder));
}

QWindow* AccessibleSurface::window() const
{
    return m_item ? m_item->window() : nullptr;
}

QAccessibleInterface* AccessibleSurface::parent() const
{
    for (QQuickItem* item = m_item ? m_item->parentItem() : nullptr; item; item = item->parentItem())
        if (QAccessibleInterface* const parent = QAccessible::queryAccessibleInterface(item))
            return parent;
    return QAccessible::queryAccessibleInterface(window());
}

QAccessibleInterface* AccessibleSurface::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    QAccessible::Id& id = m_parts[index];
    if (id == 0) {
        auto part = makePart(index);
        part->remember();
        // Qt owns what is registered.
        id = QAccessible::registerAccessibleInterface(part.release());
    }
    return QAccessible::accessibleInterface(id);
}

AccessiblePart* AccessibleSurface::known(int part) const
{
    const auto id = m_parts.constFind(part);
    if (id == m_parts.cend())
        return nullptr;
    return static_cast<AccessiblePart*>(QAccessible::accessibleInterface(*id));
}

int AccessibleSurface::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const ours = dynamic_cast<const AccessiblePart*>(child);
    return m_item && ours && known(ours->index()) == ours ? ours->index() : -1;
}

QAccessibleInterface* AccessibleSurface::childAt(int x, int y) const
{
    const auto part = m_item ? partAt(m_item->mapFromGlobal(QPointF(x, y))) : std::nullopt;
    return part ? child(*part) : nullptr;
}

std::optional<int> AccessibleSurface::focusedPart() const
{
    return m_item && m_item->hasActiveFocus() ? keyboardPart() : std::nullopt;
}

QAccessibleInterface* AccessibleSurface::focusChild() const
{
    const auto part = focusedPart();
    return part ? child(*part) : nullptr;
}

QRect AccessibleSurface::rect() const
{
    return m_item ? onScreen(m_item->boundingRect()) : QRect();
}

QRect AccessibleSurface::onScreen(const QRectF& rect) const
{
    return QRectF(m_item->mapToGlobal(rect.topLeft()), rect.size()).toRect();
}

QAccessible::State AccessibleSurface::state() const
{
    QAccessible::State state;
    if (!m_item)
        return state;
    state.focusable = true;
    state.focused = m_item->hasActiveFocus();
    state.invisible = !m_item->isVisible();
    state.disabled = !m_item->isEnabled();
    return state;
}

void AccessibleSurface::tellOf(int part) const
{
    if (AccessiblePart* const there = known(part))
        there->tellOfChanges();
}

void AccessibleSurface::tellOfAll() const
{
    const QList<int> parts = m_parts.keys();
    for (const int part : parts)
        tellOf(part);
}

void AccessibleSurface::tellOfFocus() const
{
    if (QAccessibleInterface* const part = focusChild())
        tell(QAccessibleEvent(part, QAccessible::Focus));
}

} // namespace corvane
