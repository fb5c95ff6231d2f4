#include "Views/Grid/CrosspointMatrixView.h"

#include "Theme/Spring.h"
#include "Views/Grid/GridAccessible.h"

#include <QQuickWindow>

#include <cmath>

namespace corvane {

namespace {

constexpr double hoverSeconds = 0.12;

double springAt(const Spring& spring, double seconds)
{
    return springPosition(spring, std::chrono::duration<double>(seconds));
}

double restAfter(const Spring& spring)
{
    return std::chrono::duration<double>(settlingTime(spring)).count();
}

double easeOut(double seconds)
{
    return QEasingCurve(QEasingCurve::OutQuad).valueForProgress(seconds / hoverSeconds);
}

} // namespace

CrosspointMatrixView::CrosspointMatrixView(QQuickItem* parent)
    : QQuickItem(parent),
      m_cells(makeLayer()),
      m_rowHeaders(makeLayer()),
      m_columnHeaders(makeLayer()),
      m_corner(makeLayer()),
      m_ticker([this](double seconds) { advance(seconds); }),
      m_connectionFades(
          [](double seconds) { return springAt(crosspointSpring, seconds); }, restAfter(crosspointSpring)),
      m_hoverFades(easeOut, hoverSeconds)
{
    GridAccessible::install();
    setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
    m_layout.cell = m_cellSize;
}

TileLayer* CrosspointMatrixView::makeLayer()
{
    return new TileLayer(this, [this](const GridTile& tile) { return m_painter.paint(tile); });
}

CrosspointMatrixView::~CrosspointMatrixView()
{
    emit goingAway();
}

void CrosspointMatrixView::setModel(CrosspointGridModel* newModel)
{
    if (newModel == m_model)
        return;
    if (m_model)
        QObject::disconnect(m_model, nullptr, this, nullptr);
    m_model = newModel;
    if (newModel)
        observe(*newModel);
    onPortsChanged();
    emit modelChanged();
}

void CrosspointMatrixView::observe(const CrosspointGridModel& model)
{
    connect(&model, &CrosspointGridModel::rowChanged, this, &CrosspointMatrixView::onRowChanged);
    connect(&model, &CrosspointGridModel::columnChanged, this, &CrosspointMatrixView::onColumnChanged);
    connect(&model, &CrosspointGridModel::contentChanged, this, &CrosspointMatrixView::onLooksChanged);
    connect(&model, &CrosspointGridModel::portsChanged, this, &CrosspointMatrixView::onPortsChanged);
    connect(&model, &QObject::destroyed, this, [this] {
        m_model.clear();
        onPortsChanged();
    });
}

void CrosspointMatrixView::setCellSize(double cellSize)
{
    if (m_cellSize == cellSize)
        return;
    m_cellSize = cellSize;
    if (isComponentComplete() && window()) {
        m_zoom = Zoom{m_layout.cell, 0};
        runTicker();
    } else {
        setShownCellSize(cellSize);
    }
    emit cellSizeChanged();
}

void CrosspointMatrixView::setControlBarClearance(double clearance)
{
    if (m_layout.controlBarClearance == clearance)
        return;
    m_layout.controlBarClearance = clearance;
    refreshLayout();
    emit controlBarClearanceChanged();
}

std::optional<GridPlace> CrosspointMatrixView::toolTipPlace() const
{
    if (m_hovered)
        return m_hovered;
    return m_showsFocus && m_focus && m_layout.isInView(*m_focus) ? m_focus : std::nullopt;
}

QString CrosspointMatrixView::toolTip() const
{
    const auto place = toolTipPlace();
    return place && m_model ? m_model->toolTip(*place) : QString();
}

QRectF CrosspointMatrixView::toolTipArea() const
{
    const auto place = toolTipPlace();
    return place ? m_layout.rectOf(*place) : QRectF();
}

void CrosspointMatrixView::setFocusPlace(GridPlace place)
{
    if (m_focus == place || !m_layout.contains(place))
        return;
    if (m_focus)
        markStale(*m_focus);
    m_focus = place;
    markStale(place);
    emit focusPlaceChanged();
    emit toolTipChanged();
}

void CrosspointMatrixView::showFocusPlace()
{
    if (m_focus)
        scrollTo(m_layout.scrollShowing(*m_focus));
}

void CrosspointMatrixView::markStale(GridPlace place)
{
    if (place.isColumnHeader())
        m_columns.remove(place.column);
    else
        markRowStale(place.row);
    polish();
}

void CrosspointMatrixView::markRowStale(int row)
{
    if (const auto shown = m_rows.find(row); shown != m_rows.end())
        shown->isStale = true;
}

void CrosspointMatrixView::scrollTo(QPointF scroll)
{
    const QPointF reachable = m_layout.clampedScroll(scroll);
    if (m_layout.scroll == reachable)
        return;
    m_layout.scroll = reachable;
    movePointer(m_pointer);
    polish();
    emit scrolled();
}

void CrosspointMatrixView::advance(double seconds)
{
    for (const int row : m_connectionFades.rows() | m_hoverFades.rows())
        markRowStale(row);
    m_connectionFades.advance(seconds);
    m_hoverFades.advance(seconds);
    if (m_zoom) {
        m_zoom->elapsed += seconds;
        const bool isAtRest = m_zoom->elapsed >= restAfter(layoutSpring);
        const double progress = isAtRest ? 1 : springAt(layoutSpring, m_zoom->elapsed);
        setShownCellSize(m_zoom->from + (m_cellSize - m_zoom->from) * progress);
        if (isAtRest)
            m_zoom.reset();
    }
    runTicker();
    polish();
}

void CrosspointMatrixView::runTicker()
{
    m_ticker.keepRunning(m_zoom || !m_connectionFades.isIdle() || !m_hoverFades.isIdle());
}

void CrosspointMatrixView::setShownCellSize(double cellSize)
{
    // What is at the upper left stays there.
    const double strideBefore = m_layout.stride();
    m_layout.cell = cellSize;
    const QPointF scroll = m_layout.scroll * (m_layout.stride() / strideBefore);
    notifyExtent();
    scrollTo(scroll);
    polish();
}

void CrosspointMatrixView::onRowChanged(int row)
{
    const auto shown = m_rows.constFind(row);
    if (shown != m_rows.cend() && shown->row != m_model->row(row))
        markStale({row, GridPlace::header});
    emit rowChanged(row);
}

void CrosspointMatrixView::onColumnChanged(int column)
{
    // A column that is out of view needs no new frame.
    if (m_columns.contains(column))
        markStale({GridPlace::header, column});
    emit columnChanged(column);
    emit toolTipChanged();
}

void CrosspointMatrixView::onLooksChanged()
{
    for (ShownRow& row : m_rows)
        row.isStale = true;
    m_columns.clear();
    refreshLayout();
    emit looksChanged();
}

void CrosspointMatrixView::onPortsChanged()
{
    m_rows.clear();
    m_columns.clear();
    m_connectionFades.clear();
    m_hoverFades.clear();
    m_hovered.reset();
    m_press.reset();
    m_lastPressed.reset();
    m_menuPlace.reset();
    refreshLayout();
    if (!m_focus || !m_layout.contains(*m_focus))
        m_focus = m_layout.firstPlace();
    movePointer(m_pointer);
    emit placesChanged();
}

void CrosspointMatrixView::refreshLayout()
{
    m_layout.sourceCount = m_model ? int(m_model->sources().size()) : 0;
    m_layout.destinationCount = m_model ? int(m_model->destinations().size()) : 0;
    if (m_model) {
        m_layout.gap = m_model->gap();
        m_layout.destWidth = m_model->destWidth();
        m_layout.headerHeight = m_model->headerHeight();
    }
    m_layout.viewport = size();
    notifyExtent();
    scrollTo(m_layout.scroll);
    polish();
    emit toolTipChanged();
}

void CrosspointMatrixView::notifyExtent()
{
    const Extent extent{m_layout.contentSize(), fieldArea()};
    if (std::exchange(m_notifiedExtent, extent) != extent)
        emit extentChanged();
}

void CrosspointMatrixView::movePointer(std::optional<QPointF> position)
{
    m_pointer = position;
    setHovered(position ? m_layout.placeAt(*position) : std::nullopt);
}

void CrosspointMatrixView::setHovered(std::optional<GridPlace> place)
{
    if (m_hovered == place)
        return;
    const auto before = std::exchange(m_hovered, place);
    if (hoverEnabled()) {
        startHoverFade(before, 1, 0);
        startHoverFade(place, 0, 1);
        runTicker();
    }
    emit toolTipChanged();
}

void CrosspointMatrixView::startHoverFade(std::optional<GridPlace> place, double from, double to)
{
    if (!place || !place->isCell())
        return;
    m_hoverFades.start(*place, from, to);
    markStale(*place);
}

void CrosspointMatrixView::componentComplete()
{
    QQuickItem::componentComplete();
    refreshLayout();
}

void CrosspointMatrixView::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    refreshLayout();
}

void CrosspointMatrixView::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        polish();
}

double CrosspointMatrixView::pixelRatio() const
{
    return window() ? window()->effectiveDevicePixelRatio() : 1;
}

qint64 CrosspointMatrixView::paintedCount() const
{
    return m_cells->paintedCount() + m_rowHeaders->paintedCount() + m_columnHeaders->paintedCount();
}

} // namespace corvane
