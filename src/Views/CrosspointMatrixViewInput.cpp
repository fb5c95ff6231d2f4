#include "Views/CrosspointMatrixView.h"
#include "Views/WheelDistance.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace corvane {

namespace {

QPointF distance(const QWheelEvent& event)
{
    const QPointF points = wheelDistance(event.pixelDelta(), event.angleDelta());
    const bool isTurned = event.modifiers().testFlag(Qt::ShiftModifier) && points.x() == 0;
    return isTurned ? points.transposed() : points;
}

bool isFromFinger(const QPointerEvent& event)
{
    return event.pointingDevice()->type() == QInputDevice::DeviceType::TouchScreen;
}

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

} // namespace

void CrosspointMatrixView::keyPressEvent(QKeyEvent* event)
{
    if (!m_focus) {
        event->ignore();
        return;
    }
    const auto next = m_layout.moved(*m_focus, event->key(), event->modifiers());
    if (!next && !actOnKey(*event, *m_focus)) {
        event->ignore();
        return;
    }
    showFocus(true);
    if (next)
        setFocusPlace(*next);
}

void CrosspointMatrixView::showFocus(bool isShown)
{
    m_showsFocus = isShown;
    polish();
    emit toolTipChanged();
}

bool CrosspointMatrixView::actOnKey(const QKeyEvent& event, GridPlace focus)
{
    using Kind = PortAction::Kind;
    // Ctrl+L and the like are other people's; a key that is held down acts once.
    const bool isPlain =
        !(event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) && !event.isAutoRepeat();
    if (!isPlain)
        return false;
    switch (event.key()) {
    case Qt::Key_Space:
        m_actions.click(focus);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_actions.take();
        return true;
    case Qt::Key_F2:
        m_actions.perform(Kind::rename, focus);
        return true;
    case Qt::Key_L:
        if (!focus.isColumnHeader())
            m_actions.perform(Kind::toggleLock, focus);
        return true;
    case Qt::Key_Menu:
        requestMenu(focus, m_layout.rectOf(focus).center());
        return true;
    case Qt::Key_F10:
        if (!event.modifiers().testFlag(Qt::ShiftModifier))
            return false;
        requestMenu(focus, m_layout.rectOf(focus).center());
        return true;
    default:
        return false;
    }
}

void CrosspointMatrixView::focusInEvent(QFocusEvent* event)
{
    showFocus(isByKeyboard(event->reason()));
    if (m_showsFocus && m_focus)
        scrollTo(m_layout.scrollShowing(*m_focus));
}

void CrosspointMatrixView::focusOutEvent(QFocusEvent*)
{
    showFocus(false);
}

void CrosspointMatrixView::mousePressEvent(QMouseEvent* event)
{
    press(*event, false);
}

void CrosspointMatrixView::mouseDoubleClickEvent(QMouseEvent* event)
{
    press(*event, true);
}

void CrosspointMatrixView::press(QMouseEvent& event, bool isDouble)
{
    forceActiveFocus(Qt::MouseFocusReason);
    showFocus(false);
    const auto place = m_layout.placeAt(event.position());
    if (place)
        setFocusPlace(*place);

    if (event.button() == Qt::RightButton) {
        if (place)
            requestMenu(*place, event.position());
        return;
    }
    // On a cell, two quick clicks are two clicks.
    if (isDouble && place && !place->isCell()) {
        m_actions.doubleClick(*place);
        m_press.reset();
        return;
    }
    if (!isDouble)
        m_actions.beginGesture();
    m_press = Press{event.position(), place, m_layout.scroll};
}

void CrosspointMatrixView::mouseMoveEvent(QMouseEvent* event)
{
    point(event->position());
    if (!m_press || !isFromFinger(*event))
        return;
    const QPointF way = event->position() - m_press->point;
    m_press->isDrag |= way.manhattanLength() > QGuiApplication::styleHints()->startDragDistance();
    if (m_press->isDrag)
        scrollTo(m_press->scroll - way);
}

void CrosspointMatrixView::mouseReleaseEvent(QMouseEvent* event)
{
    const auto press = std::exchange(m_press, std::nullopt);
    if (!press || !press->place || press->isDrag)
        return;
    if (m_layout.placeAt(event->position()) == press->place)
        m_actions.click(*press->place);
}

void CrosspointMatrixView::mouseUngrabEvent()
{
    m_press.reset();
}

void CrosspointMatrixView::hoverEnterEvent(QHoverEvent* event)
{
    point(event->position());
}

void CrosspointMatrixView::hoverMoveEvent(QHoverEvent* event)
{
    point(event->position());
}

void CrosspointMatrixView::hoverLeaveEvent(QHoverEvent*)
{
    point(std::nullopt);
}

void CrosspointMatrixView::wheelEvent(QWheelEvent* event)
{
    scrollTo(m_layout.scroll - distance(*event));
}

void CrosspointMatrixView::requestMenu(GridPlace place, QPointF point)
{
    m_menu = m_actions.menu(place);
    m_menuPlace = place;
    if (m_menu.isEmpty())
        return;
    emit menuRequested(point, menuEntries(m_menu));
}

void CrosspointMatrixView::performMenuEntry(int position)
{
    if (!m_menuPlace || position < 0 || position >= m_menu.size())
        return;
    // Nothing is unlocked by "Lock" when someone else has locked it meanwhile.
    if (const auto& action = m_menu.at(position); m_actions.menu(*m_menuPlace).contains(action))
        m_actions.perform(action.kind, *m_menuPlace);
}

} // namespace corvane
