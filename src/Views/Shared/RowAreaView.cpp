#include "Views/Shared/RowArea.h"
#include "Views/Shared/WheelDistance.h"

#include <algorithm>

namespace corvane {

namespace {

void collectButtons(QQuickItem& in, QList<QAccessibleInterface*>& found)
{
    for (QQuickItem* const child : in.childItems()) {
        QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(child);
        if (button && button->role() == QAccessible::Button)
            found.append(button);
        else if (child->isVisible())
            collectButtons(*child, found);
    }
}

// How `ListView`, which has no C++ interface, brings a row into view.
constexpr int center = 1;
constexpr int contain = 4;

} // namespace

double RowArea::viewValue(const char* property) const
{
    return m_view ? m_view->property(property).toDouble() : 0;
}

QQuickItem* RowArea::itemOf(int row) const
{
    QQuickItem* item = nullptr;
    if (m_view)
        QMetaObject::invokeMethod(m_view, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, row));
    return item;
}

double RowArea::rowStride() const
{
    return std::max(1.0, viewValue("contentHeight") / std::max(1, rowCount()));
}

double RowArea::clearHeight() const
{
    return height() - viewValue("topMargin") - viewValue("bottomMargin");
}

QRectF RowArea::rectOf(int row) const
{
    if (const QQuickItem* const item = itemOf(row))
        return item->mapRectToItem(this, item->boundingRect());
    const double top = viewValue("originY") + row * rowStride() - viewValue("contentY");
    return {0, top, width(), rowStride()};
}

bool RowArea::isInView(int row) const
{
    return rectOf(row).intersects(boundingRect());
}

QList<QAccessibleInterface*> RowArea::buttonsOf(int row) const
{
    QList<QAccessibleInterface*> found;
    if (QQuickItem* const item = m_speaksOfButtons ? itemOf(row) : nullptr)
        collectButtons(*item, found);
    return found;
}

std::optional<int> RowArea::rowAt(QPointF point) const
{
    int row = -1;
    if (m_view && boundingRect().contains(point))
        QMetaObject::invokeMethod(m_view, "indexAt", Q_RETURN_ARG(int, row), Q_ARG(double, point.x()),
            Q_ARG(double, point.y() + viewValue("contentY")));
    return row >= 0 && rectOf(row).contains(point) ? std::optional(row) : std::nullopt;
}

void RowArea::position(int row, int mode)
{
    if (m_view)
        QMetaObject::invokeMethod(m_view, "positionViewAtIndex", Q_ARG(int, row), Q_ARG(int, mode));
}

void RowArea::scrollTo(double contentY)
{
    if (!m_view)
        return;
    const double top = viewValue("originY") - viewValue("topMargin");
    const double most =
        viewValue("originY") + viewValue("contentHeight") + viewValue("bottomMargin") - height();
    m_view->setProperty("contentY", std::clamp(contentY, top, std::max(top, most)));
}

void RowArea::showRow(int row)
{
    position(row, contain);
    const QRectF rect = rectOf(row);
    // A row that is higher than the area shows its beginning.
    const double down = rect.bottom() - (height() - viewValue("bottomMargin"));
    const double up = rect.top() - viewValue("topMargin");
    if (up < 0 || down > 0)
        scrollTo(viewValue("contentY") + (up < 0 ? up : std::min(up, down)));
}

void RowArea::centreRow(int row)
{
    const double top = viewValue("topMargin");
    const QRectF rect = rectOf(row);
    if (rect.top() < top || rect.bottom() > top + clearHeight()) {
        position(row, center);
        scrollTo(viewValue("contentY") + rectOf(row).center().y() - top - clearHeight() / 2);
    }
}

void RowArea::holdCurrentItem()
{
    if (!m_view)
        return;
    // A view keeps the item of its current row in view or not, and with it what is typed there.
    const int row = currentRow();
    const bool isThere = itemOf(row) || m_view->property("currentIndex") == row;
    m_view->setProperty("currentIndex", isThere ? row : -1);
}

void RowArea::turnWheel(QPointF pixelDelta, QPointF angleDelta)
{
    scrollTo(viewValue("contentY") - wheelDistance(pixelDelta, angleDelta).y());
}

bool RowArea::canMove(int row) const
{
    return m_model && m_model->canMove(row);
}

double RowArea::dropLine() const
{
    const double gap = viewValue("spacing") / 2;
    return m_dropRow < rowCount() ? rectOf(m_dropRow).top() - gap : rectOf(rowCount() - 1).bottom() + gap;
}

void RowArea::beginDrag(int row)
{
    if (!canMove(row))
        return;
    m_dragged = m_model->index(row);
    m_dropRow = row;
    emit dragChanged();
}

void RowArea::dragTo(QPointF point)
{
    if (draggedRow() < 0)
        return;
    const int over = rowAt({width() / 2, std::clamp(point.y(), 0.0, height() - 1)}).value_or(-1);
    if (over < 0)
        return;
    const int before = point.y() < rectOf(over).center().y() ? over : over + 1;
    if (std::exchange(m_dropRow, before) != before)
        emit dragChanged();
}

void RowArea::endDrag(bool isDropped)
{
    const int from = draggedRow();
    const int before = std::exchange(m_dropRow, -1);
    m_dragged = QModelIndex();
    if (before < 0)
        return;
    emit dragChanged();
    // Before itself and behind itself it is where it was.
    if (isDropped && from >= 0 && before != from && before != from + 1)
        m_model->moveRow(from, before);
}

} // namespace corvane
