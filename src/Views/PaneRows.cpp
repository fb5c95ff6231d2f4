#include "Views/PaneRows.h"

#include "Views/PaneRowsAccessible.h"
#include "Views/WheelDistance.h"

#include <algorithm>

namespace corvane {

namespace {

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

/// Ctrl+L and the like are other people's.
bool isPlain(const QKeyEvent& event)
{
    return !(event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier));
}

} // namespace

PaneRows::PaneRows(QQuickItem* parent) : QQuickItem(parent)
{
    PaneRowsAccessible::install();
    setActiveFocusOnTab(true);
}

PaneRows::~PaneRows()
{
    emit goingAway();
}

void PaneRows::setModel(PaneModel* newModel)
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

void PaneRows::observe(const PaneModel& model)
{
    connect(&model, &PaneModel::rowsInserted, this, &PaneRows::onRowsChanged);
    connect(&model, &PaneModel::rowsRemoved, this, &PaneRows::onRowsChanged);
    connect(&model, &PaneModel::dataChanged, this, [this](const QModelIndex& from, const QModelIndex& to) {
        for (int row = from.row(); row <= to.row(); ++row)
            emit rowChanged(row);
    });
    connect(&model, &QObject::destroyed, this, [this] {
        m_model.clear();
        onRowsChanged();
    });
}

void PaneRows::onRowsChanged()
{
    auto layout = m_layout;
    layout.rowCount = m_model ? m_model->rowCount() : 0;
    m_isFresh |= layout.rowCount == 0;
    setLayout(layout);
    setFocusRow(m_focusRow);
    emit rowsChanged();
    polish();
}

void PaneRows::setLayout(const PaneLayout& layout)
{
    m_layout = layout;
    emit layoutChanged();
}

void PaneRows::setRowHeight(double height)
{
    if (height == rowHeight())
        return;
    auto layout = m_layout;
    layout.rowHeight = height;
    setLayout(layout);
}

void PaneRows::setClearance(double newClearance)
{
    if (newClearance == clearance())
        return;
    auto layout = m_layout;
    layout.clearance = newClearance;
    setLayout(layout);
}

void PaneRows::setScroll(double newScroll)
{
    if (newScroll == scroll())
        return;
    m_layout.scroll = newScroll;
    emit scrollChanged();
}

void PaneRows::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    auto layout = m_layout;
    layout.viewport = newGeometry.size();
    setLayout(layout);
    polish();
}

void PaneRows::updatePolish()
{
    if (!m_isFresh || m_layout.rowCount == 0 || m_layout.viewport.isEmpty())
        return;
    m_isFresh = false;
    const int start = m_model->startPosition();
    setFocusRow(start);
    emit scrollWanted(m_layout.scrollCentring(start));
}

void PaneRows::setFocusRow(int row)
{
    const int reachable = std::clamp(row, 0, std::max(0, m_layout.rowCount - 1));
    if (reachable == m_focusRow)
        return;
    m_focusRow = reachable;
    emit focusRowChanged();
}

void PaneRows::point(int row)
{
    forceActiveFocus(Qt::MouseFocusReason);
    showFocus(false);
    setFocusRow(row);
}

void PaneRows::turnWheel(QPointF pixelDelta, QPointF angleDelta)
{
    const double wanted = m_layout.scroll - wheelDistance(pixelDelta, angleDelta).y();
    emit scrollWanted(std::clamp(wanted, 0.0, m_layout.maximumScroll()));
}

void PaneRows::click(int row)
{
    point(row);
    if (m_model)
        m_model->click(row);
}

void PaneRows::doubleClick(int row)
{
    point(row);
    if (m_model)
        m_model->doubleClick(row);
}

void PaneRows::clickBadge(int row)
{
    point(row);
    if (m_model)
        m_model->clickBadge(row);
}

void PaneRows::requestMenu(int row, QPointF point)
{
    setFocusRow(row);
    m_menu = m_model ? m_model->menu(row) : QList<PortAction>();
    if (m_menu.isEmpty())
        return;
    m_menuPort = m_model->portAt(row);
    emit menuRequested(point, menuEntries(m_menu));
}

void PaneRows::performMenuEntry(int position)
{
    // By the port: meanwhile another one may stand at the place.
    const auto row = m_model && m_menuPort ? m_model->positionOf(*m_menuPort) : std::nullopt;
    if (!row || position < 0 || position >= m_menu.size())
        return;
    // Nor is one unlocked by "Lock" when someone else has locked it meanwhile.
    if (const auto& action = m_menu.at(position); m_model->menu(*row).contains(action))
        m_model->perform(action.kind, *row);
}

void PaneRows::takeKeyboard()
{
    forceActiveFocus(Qt::TabFocusReason);
}

void PaneRows::keyPressEvent(QKeyEvent* event)
{
    const auto next = isPlain(*event) ? m_layout.moved(m_focusRow, event->key()) : std::nullopt;
    if (!next && !actOnKey(*event)) {
        event->ignore();
        return;
    }
    showFocus(true);
    if (!next)
        return;
    setFocusRow(*next);
    emit scrollWanted(m_layout.scrollShowing(*next));
}

bool PaneRows::actOnKey(const QKeyEvent& event)
{
    // A key that is held down acts once.
    if (!m_model || !m_layout.contains(m_focusRow) || !isPlain(event) || event.isAutoRepeat())
        return false;
    const bool isShifted = event.modifiers().testFlag(Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Space:
        m_model->click(m_focusRow);
        return true;
    case Qt::Key_F2:
        m_model->perform(PortAction::Kind::rename, m_focusRow);
        return true;
    case Qt::Key_L:
        m_model->perform(PortAction::Kind::toggleLock, m_focusRow);
        return true;
    case Qt::Key_F10:
        if (!isShifted)
            return false;
        [[fallthrough]];
    case Qt::Key_Menu:
        requestMenu(m_focusRow, m_layout.rectOf(m_focusRow).center());
        return true;
    default:
        return false;
    }
}

void PaneRows::focusInEvent(QFocusEvent* event)
{
    showFocus(isByKeyboard(event->reason()));
    if (m_showsFocus && m_layout.contains(m_focusRow))
        emit scrollWanted(m_layout.scrollShowing(m_focusRow));
}

void PaneRows::focusOutEvent(QFocusEvent*)
{
    showFocus(false);
}

void PaneRows::showFocus(bool isShown)
{
    if (isShown == m_showsFocus)
        return;
    m_showsFocus = isShown;
    emit focusRowChanged();
}

} // namespace corvane
