#include "Views/Shared/RowArea.h"

#include "Views/Shared/RowAreaAccessible.h"

namespace corvane {

namespace {

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

QKeyCombination combination(const QKeyEvent& event)
{
    // Delete is Backspace on keyboards that have no other.
    const auto key = event.key() == Qt::Key_Backspace ? Qt::Key_Delete : static_cast<Qt::Key>(event.key());
    return QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, key);
}

} // namespace

RowArea::RowArea(QQuickItem* parent) : QQuickItem(parent)
{
    RowAreaAccessible::install();
    setActiveFocusOnTab(true);
    connect(this, &QQuickItem::activeFocusChanged, this, &RowArea::showsFocusChanged);
}

RowArea::~RowArea()
{
    emit goingAway();
}

void RowArea::setModel(RowListModel* newModel)
{
    if (newModel == m_model)
        return;
    if (m_model)
        QObject::disconnect(m_model, nullptr, this, nullptr);
    m_model = newModel;
    if (newModel)
        observe(*newModel);
    m_isFresh = true;
    onRowsChanged();
    emit modelChanged();
}

void RowArea::observe(const RowListModel& model)
{
    connect(&model, &RowListModel::rowsInserted, this, &RowArea::onRowsChanged);
    connect(&model, &RowListModel::rowsRemoved, this, &RowArea::onRowsChanged);
    connect(&model, &RowListModel::rowsMoved, this, &RowArea::onRowsChanged);
    connect(&model, &RowListModel::modelReset, this, &RowArea::onRowsChanged);
    connect(&model, &RowListModel::rowWanted, this, &RowArea::onRowWanted);
    connect(&model, &RowListModel::dataChanged, this, [this](const QModelIndex& from, const QModelIndex& to) {
        for (int row = from.row(); row <= to.row(); ++row)
            emit rowChanged(row);
        followMenu();
    });
    connect(&model, &QObject::destroyed, this, [this] {
        m_model.clear();
        onRowsChanged();
    });
}

void RowArea::onRowsChanged()
{
    m_isFresh |= rowCount() == 0;
    if (!m_current.isValid())
        setCurrentRow(reachable(m_lastRow, 1));
    m_lastRow = std::max(0, currentRow());
    followMenu();
    if (draggedRow() < 0)
        endDrag(false);
    emit currentRowChanged();
    emit rowsChanged();
    polish();
}

void RowArea::onRowWanted(int row)
{
    setCurrentRow(row);
    showRow(row);
}

void RowArea::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    polish();
}

void RowArea::updatePolish()
{
    if (m_isFresh && rowCount() > 0 && !size().isEmpty()) {
        m_isFresh = false;
        const int start = m_model->startRow();
        setCurrentRow(start);
        centreRow(start);
    }
    holdCurrentItem();
}

void RowArea::setCurrentRow(int row)
{
    const QModelIndex index = m_model ? m_model->index(row) : QModelIndex();
    if (index == m_current)
        return;
    m_current = index;
    m_lastRow = std::max(0, row);
    emit currentRowChanged();
    polish();
}

void RowArea::point(int row)
{
    forceActiveFocus(Qt::MouseFocusReason);
    setKeyboardLed(false);
    setCurrentRow(row);
}

void RowArea::press(int row)
{
    if (!m_model || !m_model->isReachable(row))
        return;
    forceActiveFocus(Qt::OtherFocusReason);
    setCurrentRow(row);
    m_model->press(row);
}

void RowArea::click(int row)
{
    if (!m_model || !m_model->isReachable(row))
        return;
    point(row);
    m_model->click(row);
}

void RowArea::doubleClick(int row)
{
    if (!m_model || !m_model->isReachable(row))
        return;
    point(row);
    m_model->doubleClick(row);
}

void RowArea::act(int row, const QString& text)
{
    if (m_model)
        runAction(m_model->actions(row), text);
}

void RowArea::openMenu(int row, QPointF point)
{
    m_menuIndex = m_model ? m_model->index(row) : QModelIndex();
    followMenu();
    if (!m_menu.isEmpty())
        emit menuOpened(point);
}

void RowArea::closeMenu()
{
    m_menuIndex = QModelIndex();
    followMenu();
}

void RowArea::followMenu()
{
    const auto menu =
        m_menuIndex.isValid() && m_model ? m_model->menu(m_menuIndex.row()) : QList<MenuAction>();
    if (menu.isEmpty())
        m_menuIndex = QModelIndex();
    const auto before = std::pair(std::exchange(m_menuRow, m_menuIndex.row()), std::exchange(m_menu, menu));
    if (before != std::pair(m_menuRow, m_menu))
        emit menuChanged();
}

void RowArea::chooseInMenu(const QString& text)
{
    // Nothing is done that the row no longer offers.
    const auto offered = m_model ? m_model->menu(m_menuRow) : QList<MenuAction>();
    closeMenu();
    runAction(offered, text);
}

void RowArea::takeKeyboard()
{
    forceActiveFocus(Qt::TabFocusReason);
}

void RowArea::keyPressEvent(QKeyEvent* event)
{
    if (!moveByKey(*event) && !actOnKey(*event)) {
        event->ignore();
        return;
    }
    setKeyboardLed(true);
}

bool RowArea::moveByKey(const QKeyEvent& event)
{
    const auto row = combination(event).keyboardModifiers() ? std::nullopt : rowByKey(event.key());
    if (!row)
        return false;
    forceActiveFocus(Qt::TabFocusReason);
    if (*row >= 0) {
        setCurrentRow(*row);
        showRow(*row);
        m_model->arrive(*row);
    }
    return true;
}

std::optional<int> RowArea::rowByKey(int key) const
{
    const int page = std::max(1, static_cast<int>(clearHeight() / rowStride()) - 1);
    switch (key) {
    case Qt::Key_Up:
        return reachable(currentRow() - 1, -1);
    case Qt::Key_Down:
        return reachable(currentRow() + 1, 1);
    case Qt::Key_PageUp:
        return reachable(currentRow() - page, -1);
    case Qt::Key_PageDown:
        return reachable(currentRow() + page, 1);
    case Qt::Key_Home:
        return reachable(0, 1);
    case Qt::Key_End:
        return reachable(rowCount() - 1, -1);
    default:
        return std::nullopt;
    }
}

int RowArea::reachable(int wanted, int direction) const
{
    const int count = rowCount();
    const int first = std::clamp(wanted, 0, std::max(0, count - 1));
    for (const int step : {direction, -direction})
        for (int row = first; row >= 0 && row < count; row += step)
            if (m_model->isReachable(row))
                return row;
    return -1;
}

bool RowArea::actOnKey(const QKeyEvent& event)
{
    const int row = currentRow();
    // A key that is held down acts once.
    if (row < 0 || event.isAutoRepeat())
        return false;
    const auto key = combination(event);
    if (key == QKeyCombination(Qt::Key_Menu) || key == (Qt::ShiftModifier | Qt::Key_F10)) {
        showRow(row);
        openMenu(row, rectOf(row).center());
        return true;
    }
    if (!key.keyboardModifiers() && pressesRow(event.key())) {
        m_model->press(row);
        return true;
    }
    return runAction(m_model->actions(currentRow()), key);
}

bool RowArea::pressesRow(int key) const
{
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    return key == Qt::Key_Space || (isReturn && m_returnPresses);
}

void RowArea::focusInEvent(QFocusEvent* event)
{
    if (isByKeyboard(event->reason())) {
        setKeyboardLed(true);
        showRow(currentRow());
    }
}

void RowArea::setKeyboardLed(bool isLed)
{
    if (std::exchange(m_isKeyboardLed, isLed) != isLed)
        emit showsFocusChanged();
}

} // namespace corvane
