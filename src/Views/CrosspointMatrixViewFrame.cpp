#include "Views/CrosspointMatrixView.h"

#include <cmath>

namespace corvane {

namespace {

/// Wide enough that a screen takes few of them, narrow enough that few cells share a route's repaint.
constexpr int columnsInTile = 8;

/// All that a header's picture depends on, in one text. The separator is no character of a label.
QString joined(std::initializer_list<QString> parts)
{
    return QStringList(parts).join(QChar(0));
}

QString contentOf(const DestinationRowHeader& header, bool hasFocus)
{
    const int flags = int(header.offPanelFeed) | int(header.locked) << 1 | int(header.isPendingDest) << 2
        | int(hasFocus) << 3;
    return joined(
        {QString::number(header.dest.index), QString::number(flags), header.dest.label, header.routedLabel});
}

QString contentOf(const SourceColumnHeader& header, bool hasFocus)
{
    const int signal = header.signalPresent ? 1 + int(*header.signalPresent) : 0;
    const int flags = int(header.isArmed) | int(hasFocus) << 1 | signal << 2;
    return joined({QString::number(header.source.index), QString::number(flags), header.source.label});
}

} // namespace

void CrosspointMatrixView::updatePolish()
{
    refreshStyle();
    placeLayers();
    startFades();
    showCells();
    showRowHeaders();
    showColumnHeaders();
    showCorner();
}

void CrosspointMatrixView::refreshStyle()
{
    const GridStyle style{
        .palette = &m_model.palette(),
        .tint = m_model.tint(),
        .cell = m_layout.field.cell,
        .gap = m_layout.field.gap,
        .destWidth = m_model.destWidth(),
        .headerHeight = m_model.headerHeight(),
        .hoverEnabled = m_model.hoverEnabled(),
        .devicePixelRatio = pixelRatio(),
    };
    if (style == m_painter.style())
        return;
    m_painter.setStyle(style);
    for (TileLayer* const layer : {m_cells, m_rowHeaders, m_columnHeaders, m_corner})
        layer->restart();
}

void CrosspointMatrixView::placeLayers()
{
    const auto place = [this](TileLayer& layer, const QRectF& area) {
        layer.setPosition(QPointF(inPixels(area.topLeft())) / pixelRatio());
        layer.setSize(area.size());
    };
    place(*m_cells, m_layout.areaOf({0, 0}));
    place(*m_rowHeaders, m_layout.areaOf({0, GridPlace::header}));
    place(*m_columnHeaders, m_layout.areaOf({GridPlace::header, 0}));
    place(*m_corner, {0, 0, m_layout.destWidth, m_layout.headerHeight});
}

void CrosspointMatrixView::startFades()
{
    QHash<int, GridRowView> rows;
    const GridSpan inView = m_layout.rowsInView();
    for (int position = inView.first; position < inView.end; ++position) {
        const GridRowView row = m_model.row(position);
        const auto before = m_shownRows.constFind(position);
        if (before != m_shownRows.cend() && before->routedSource != row.routedSource)
            startFade(position, before->routedSource, row.routedSource);
        rows.insert(position, row);
    }
    m_shownRows = std::move(rows);
    keepMoving();
}

void CrosspointMatrixView::startFade(
    int row, std::optional<qint64> sourceBefore, std::optional<qint64> sourceNow)
{
    if (const auto column = sourceBefore ? m_model.columnOf(*sourceBefore) : std::nullopt)
        m_connecting.start({row, *column}, 1, 0);
    if (const auto column = sourceNow ? m_model.columnOf(*sourceNow) : std::nullopt)
        m_connecting.start({row, *column}, 0, 1);
}

QPoint CrosspointMatrixView::inPixels(QPointF point) const
{
    return (point * pixelRatio()).toPoint();
}

QPoint CrosspointMatrixView::tilePosition(GridPlace place) const
{
    // Positions are rounded once for the scroll and once for the place, so that all that moves together stays
    // together.
    const QPointF origin = m_layout.rectOf({0, 0}).topLeft() - m_layout.areaOf({0, 0}).topLeft();
    const QPoint first = inPixels(origin - QPointF(m_painter.margin(), m_painter.margin()));
    return first + QPoint(m_painter.devicePosition(place.column), m_painter.devicePosition(place.row));
}

CellLook CrosspointMatrixView::look(const GridRowView& row, GridPlace place) const
{
    const CrosspointCell cell = row.cellAt(place.column);
    const double connection = m_connecting.value(place, cell.isConnected ? 1 : 0);
    const bool isRaised = m_model.hoverEnabled() && m_hovered == place;
    const double hover = cell.isConnected ? 0 : m_hovering.value(place, isRaised ? 1 : 0);
    return {
        .isPending = cell.isPending,
        .highlighted = cell.highlighted,
        .locked = cell.locked,
        .hasFocus = showsFocus(place),
        .connection = static_cast<int>(std::lround(connection * CellLook::connectionSteps)),
        .hover = static_cast<int>(std::lround(hover * CellLook::hoverSteps)),
    };
}

void CrosspointMatrixView::showCells()
{
    const GridSpan rows = m_layout.rowsInView();
    const GridSpan columns = m_layout.columnsInView();
    m_cells->begin();
    for (int row = rows.first; row < rows.end; ++row)
        for (int first = columns.first - columns.first % columnsInTile; first < columns.end;
             first += columnsInTile)
            showStrip(row, {first, std::min(first + columnsInTile, m_layout.field.sourceCount)});
    m_cells->end();
}

void CrosspointMatrixView::showStrip(int row, GridSpan columns)
{
    QList<CellLook> looks;
    QString content;
    for (int column = columns.first; column < columns.end; ++column) {
        looks.append(look(m_shownRows[row], {row, column}));
        content.append(QChar(looks.last().packed()));
    }
    m_cells->add({content, tilePosition({row, columns.first})}, [&] { return m_painter.cells(looks); });
}

void CrosspointMatrixView::showRowHeaders()
{
    const GridSpan rows = m_layout.rowsInView();
    const int left = -inPixels({m_painter.margin(), 0}).x();
    m_rowHeaders->begin();
    for (int row = rows.first; row < rows.end; ++row) {
        const DestinationRowHeader header = m_shownRows[row].header();
        const bool hasFocus = showsFocus({row, GridPlace::header});
        const QPoint position(left, tilePosition({row, 0}).y());
        m_rowHeaders->add(
            {contentOf(header, hasFocus), position}, [&] { return m_painter.rowHeader(header, hasFocus); });
    }
    m_rowHeaders->end();
}

void CrosspointMatrixView::showColumnHeaders()
{
    const GridSpan columns = m_layout.columnsInView();
    const int top = -inPixels({0, m_painter.margin()}).y();
    m_columnHeaders->begin();
    for (int column = columns.first; column < columns.end; ++column) {
        const SourceColumnHeader header = m_model.column(column);
        const bool hasFocus = showsFocus({GridPlace::header, column});
        const QPoint position(tilePosition({0, column}).x(), top);
        m_columnHeaders->add({contentOf(header, hasFocus), position},
            [&] { return m_painter.columnHeader(header, hasFocus); });
    }
    m_columnHeaders->end();
}

void CrosspointMatrixView::showCorner()
{
    m_corner->begin();
    if (m_layout.contains({0, GridPlace::header}) || m_layout.contains({GridPlace::header, 0}))
        m_corner->add({QStringLiteral("corner"), {}}, [this] { return m_painter.corner(); });
    m_corner->end();
}

} // namespace corvane
