#include "Views/Grid/CrosspointMatrixView.h"
#include "Views/Shared/WheelDistance.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace corvane {

namespace {

QPointF wheelScroll(const QWheelEvent& event)
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
    showFocusPlace();
}

void CrosspointMatrixView::showFocus(bool isShown)
{
    m_showsFocus = isShown;
    if (m_focus)
        markStale(*m_focus);
    emit toolTipChanged();
}

bool CrosspointMatrixView::actOnKey(const QKeyEvent& event, GridPlace focus)
{
    // Ctrl+L and the like belong to others; a key that is held down acts once.
    const bool isPlain =
        !(event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) && !event.isAutoRepeat();
    if (!isPlain)
        return false;
    switch (event.key()) {
    case Qt::Key_Space:
        m_model->actions().click(focus);
        return true;
    case Qt::Key_F2:
        m_model->actions().rename(focus);
        return true;
    case Qt::Key_L:
        m_model->actions().toggleLock(focus);
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
    if (m_showsFocus)
        showFocusPlace();
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

void CrosspointMatrixView::press(QMouseEvent& event, bool isSecond)
{
    forceActiveFocus(Qt::MouseFocusReason);
    showFocus(false);
    const auto place = m_layout.placeAt(event.position());
    const bool isAtSamePlace = std::exchange(m_lastPressed, place) == place;
    if (place)
        setFocusPlace(*place);

    if (event.button() == Qt::RightButton) {
        if (place)
            requestMenu(*place, event.position());
        return;
    }
    // On a cell, two quick clicks are two clicks.
    const bool isDouble = isSecond && isAtSamePlace;
    if (isDouble && place && !place->isCell()) {
        m_model->actions().doubleClick(*place);
        m_press.reset();
        return;
    }
    if (!isDouble && m_model)
        m_model->actions().beginGesture();
    m_press = Press{event.position(), place, m_layout.scroll};
}

void CrosspointMatrixView::mouseMoveEvent(QMouseEvent* event)
{
    movePointer(event->position());
    if (!m_press || !isFromFinger(*event))
        return;
    const QPointF distance = event->position() - m_press->point;
    m_press->isDrag |= distance.manhattanLength() > QGuiApplication::styleHints()->startDragDistance();
    if (m_press->isDrag)
        scrollTo(m_press->scroll - distance);
}

void CrosspointMatrixView::mouseReleaseEvent(QMouseEvent* event)
{
    const auto press = std::exchange(m_press, std::nullopt);
    if (!press || !press->place || press->isDrag)
        return;
    if (m_layout.placeAt(event->position()) == press->place)
        m_model->actions().click(*press->place);
}

void CrosspointMatrixView::mouseUngrabEvent()
{
    m_press.reset();
}

void CrosspointMatrixView::hoverEnterEvent(QHoverEvent* event)
{
    movePointer(event->position());
}

void CrosspointMatrixView::hoverMoveEvent(QHoverEvent* event)
{
    movePointer(event->position());
}

void CrosspointMatrixView::hoverLeaveEvent(QHoverEvent*)
{
    movePointer(std::nullopt);
}

void CrosspointMatrixView::wheelEvent(QWheelEvent* event)
{
    scrollTo(m_layout.scroll - wheelScroll(*event));
}

void CrosspointMatrixView::requestMenu(GridPlace place, QPointF point)
{
    const auto menu = m_model->actions().menu(place);
    m_menuPlace = place;
    if (!menu.isEmpty())
        emit menuRequested(point, toVariants(menu));
}

void CrosspointMatrixView::chooseInMenu(const QString& text)
{
    // "Lock" unlocks nothing when someone else has locked it meanwhile.
    if (m_model && m_menuPlace)
        runAction(m_model->actions().menu(*m_menuPlace), text);
}

} // namespace corvane
