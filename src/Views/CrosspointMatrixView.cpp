#include "Views/CrosspointMatrixView.h"

#include "Theme/Spring.h"
#include "Views/GridAccessible.h"

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
      m_actions(m_model),
      m_cells(new TileLayer(this)),
      m_rowHeaders(new TileLayer(this)),
      m_columnHeaders(new TileLayer(this)),
      m_corner(new TileLayer(this)),
      m_ticker([this](double seconds) { advance(seconds); }),
      m_connecting(
          [](double seconds) { return springAt(crosspointSpring, seconds); }, restAfter(crosspointSpring)),
      m_hovering(easeOut, hoverSeconds)
{
    GridAccessible::install();
    setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
    connect(&m_model, &CrosspointGridModel::rowChanged, this, &CrosspointMatrixView::onRowChanged);
    connect(&m_model, &CrosspointGridModel::columnChanged, this, [this] {
        polish();
        emit toolTipChanged();
    });
    connect(&m_model, &CrosspointGridModel::looksChanged, this, &CrosspointMatrixView::refreshLayout);
    connect(&m_model, &CrosspointGridModel::portsChanged, this, &CrosspointMatrixView::onPortsChanged);
}

CrosspointMatrixView::~CrosspointMatrixView() = default;

void CrosspointMatrixView::setController(MatrixController* controller)
{
    if (m_model.controller() == controller)
        return;
    m_model.setController(controller);
    scrollTo({});
    emit controllerChanged();
}

void CrosspointMatrixView::setDark(bool isDark)
{
    if (this->isDark() == isDark)
        return;
    m_model.setPalette(isDark ? GlassPalette::dark() : GlassPalette::light());
    emit darkChanged();
}

void CrosspointMatrixView::setCellSize(double cellSize)
{
    if (m_cellSize == cellSize)
        return;
    m_cellSize = cellSize;
    if (isComponentComplete() && window()) {
        m_zoom = Zoom{m_layout.field.cell, 0};
        keepMoving();
    } else {
        setShownCellSize(cellSize);
    }
    emit cellSizeChanged();
}

void CrosspointMatrixView::setGap(double gap)
{
    if (m_layout.field.gap == gap)
        return;
    m_layout.field.gap = gap;
    refreshLayout();
    emit gapChanged();
}

void CrosspointMatrixView::setHoverCellLimit(int limit)
{
    if (hoverCellLimit() == limit)
        return;
    m_model.setHoverCellLimit(limit);
    emit hoverCellLimitChanged();
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
    return m_hovered || !m_showsFocus ? m_hovered : m_focus;
}

QString CrosspointMatrixView::toolTip() const
{
    const auto place = toolTipPlace();
    return place ? m_model.toolTip(*place) : QString();
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
    m_focus = place;
    scrollTo(m_layout.scrollShowing(place));
    polish();
    emit focusPlaceChanged();
    emit toolTipChanged();
}

void CrosspointMatrixView::scrollTo(QPointF scroll)
{
    const QPointF reachable = m_layout.clampedScroll(scroll);
    if (m_layout.scroll == reachable)
        return;
    m_layout.scroll = reachable;
    point(m_pointer);
    polish();
    emit scrolled();
}

void CrosspointMatrixView::advance(double seconds)
{
    m_connecting.advance(seconds);
    m_hovering.advance(seconds);
    if (m_zoom) {
        m_zoom->elapsed += seconds;
        const bool isAtRest = m_zoom->elapsed >= restAfter(layoutSpring);
        const double progress = isAtRest ? 1 : springAt(layoutSpring, m_zoom->elapsed);
        setShownCellSize(m_zoom->from + (m_cellSize - m_zoom->from) * progress);
        if (isAtRest)
            m_zoom.reset();
    }
    keepMoving();
    polish();
}

void CrosspointMatrixView::keepMoving()
{
    m_ticker.keepRunning(m_zoom || !m_connecting.isIdle() || !m_hovering.isIdle());
}

void CrosspointMatrixView::setShownCellSize(double cellSize)
{
    // What is at the upper left stays there.
    const double strideBefore = m_layout.field.stride();
    m_layout.field.cell = cellSize;
    const QPointF scroll = m_layout.scroll * (m_layout.field.stride() / strideBefore);
    tellOfExtent();
    scrollTo(scroll);
    polish();
}

void CrosspointMatrixView::onRowChanged(int row)
{
    const auto shown = m_shownRows.constFind(row);
    if (shown != m_shownRows.cend() && *shown != m_model.row(row))
        polish();
}

void CrosspointMatrixView::onPortsChanged()
{
    m_shownRows.clear();
    m_connecting.clear();
    m_hovering.clear();
    m_hovered.reset();
    m_press.reset();
    m_menuPlace.reset();
    refreshLayout();
    if (m_focus && !m_layout.contains(*m_focus))
        m_focus.reset();
    if (!m_focus && m_layout.contains({0, 0}))
        m_focus = GridPlace{0, 0};
    point(m_pointer);
}

void CrosspointMatrixView::refreshLayout()
{
    m_layout.field.sourceCount = int(m_model.sources().size());
    m_layout.field.destinationCount = int(m_model.destinations().size());
    m_layout.destWidth = m_model.destWidth();
    m_layout.headerHeight = m_model.headerHeight();
    m_layout.viewport = size();
    tellOfExtent();
    scrollTo(m_layout.scroll);
    polish();
    emit toolTipChanged();
}

void CrosspointMatrixView::tellOfExtent()
{
    const Extent extent{m_layout.contentSize(), fieldArea()};
    if (std::exchange(m_toldExtent, extent) != extent)
        emit extentChanged();
}

void CrosspointMatrixView::point(std::optional<QPointF> position)
{
    m_pointer = position;
    setHovered(position ? m_layout.placeAt(*position) : std::nullopt);
}

void CrosspointMatrixView::setHovered(std::optional<GridPlace> place)
{
    if (m_hovered == place)
        return;
    if (m_model.hoverEnabled()) {
        if (m_hovered && m_hovered->isCell())
            m_hovering.start(*m_hovered, 1, 0);
        if (place && place->isCell())
            m_hovering.start(*place, 0, 1);
    }
    m_hovered = place;
    keepMoving();
    polish();
    emit toolTipChanged();
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
