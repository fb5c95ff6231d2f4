#include "Views/Grid/CrosspointMatrixView.h"

#include <cmath>

namespace corvane {

namespace {

quint8 steps(double share, quint8 count)
{
    return static_cast<quint8>(std::lround(share * count));
}

/// The columns of all strips of which anything is to be seen.
GridSpan wholeStrips(GridSpan columns, int columnCount)
{
    const int first = columns.first - columns.first % CellStrip::capacity;
    const int strips = (columns.end - first + CellStrip::capacity - 1) / CellStrip::capacity;
    return {first, std::min(first + strips * CellStrip::capacity, columnCount)};
}

} // namespace

void CrosspointMatrixView::updatePolish()
{
    refreshStyle();
    placeLayers();
    refreshRows();
    refreshColumns();
    addRowTiles();
    addColumnTiles();
    addCornerTile();
    runTicker();
}

void CrosspointMatrixView::refreshStyle()
{
    if (!m_model)
        return;
    const GridStyle style{
        .palette = &m_model->palette(),
        .tint = m_model->tint(),
        .cell = m_layout.cell,
        .gap = m_layout.gap,
        .destWidth = m_model->destWidth(),
        .headerHeight = m_model->headerHeight(),
        .hoverEnabled = m_model->hoverEnabled(),
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

void CrosspointMatrixView::refreshRows()
{
    const GridSpan rows = m_layout.rowsInView();
    const GridSpan columns = wholeStrips(m_layout.columnsInView(), m_layout.sourceCount);
    m_rows.removeIf([&](QHash<int, ShownRow>::iterator row) { return !rows.contains(row.key()); });
    for (int position = rows.first; position < rows.end; ++position) {
        ShownRow& row = m_rows[position];
        if (row.isStale || row.columns != columns)
            refreshRow(row, position, columns);
    }
}

void CrosspointMatrixView::refreshRow(ShownRow& shown, int position, GridSpan columns)
{
    const GridRowView row = m_model->row(position);
    if (shown.row && shown.row->routedSource != row.routedSource)
        startFade(position, shown.row->routedSource, row.routedSource);
    shown = {.isStale = false,
        .row = row,
        .header = {row.header(), showsFocus({position, GridPlace::header})},
        .columns = columns,
        .strips = {}};
    for (int first = columns.first; first < columns.end; first += CellStrip::capacity)
        shown.strips.append(strip(position, first, std::min(first + CellStrip::capacity, columns.end)));
}

void CrosspointMatrixView::startFade(
    int row, std::optional<qint64> sourceBefore, std::optional<qint64> sourceNow)
{
    if (const auto column = sourceBefore ? m_model->columnOf(*sourceBefore) : std::nullopt)
        m_connectionFades.start({row, *column}, 1, 0);
    if (const auto column = sourceNow ? m_model->columnOf(*sourceNow) : std::nullopt)
        m_connectionFades.start({row, *column}, 0, 1);
}

CellStrip CrosspointMatrixView::strip(int row, int first, int end) const
{
    CellStrip strip;
    for (int column = first; column < end; ++column)
        strip.looks.at(strip.count++) = look({row, column});
    return strip;
}

CellLook CrosspointMatrixView::look(GridPlace place) const
{
    const auto& row = m_rows.constFind(place.row)->row;
    const auto cell = row ? row->cellAt(place.column) : CrosspointCell();
    const double connection = m_connectionFades.value(place, cell.isConnected ? 1 : 0);
    const bool isRaised = hoverEnabled() && m_hovered == place;
    const double hover = cell.isConnected ? 0 : m_hoverFades.value(place, isRaised ? 1 : 0);
    return {
        .isPending = cell.isPending,
        .highlighted = cell.highlighted,
        .locked = cell.locked,
        .hasFocus = showsFocus(place),
        .connection = steps(connection, CellLook::connectionSteps),
        .hover = steps(hover, CellLook::hoverSteps),
    };
}

void CrosspointMatrixView::refreshColumns()
{
    const GridSpan columns = m_layout.columnsInView();
    m_columns.removeIf(
        [&](QHash<int, ColumnHeaderTile>::iterator column) { return !columns.contains(column.key()); });
    for (int column = columns.first; column < columns.end; ++column)
        if (!m_columns.contains(column))
            m_columns.insert(column, {m_model->column(column), showsFocus({GridPlace::header, column})});
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

void CrosspointMatrixView::addRowTiles()
{
    const GridSpan rows = m_layout.rowsInView();
    const int left = -inPixels({m_painter.margin(), 0}).x();
    m_cells->begin();
    m_rowHeaders->begin();
    for (int position = rows.first; position < rows.end; ++position) {
        const ShownRow& row = *m_rows.constFind(position);
        m_rowHeaders->add(row.header, {left, tilePosition({position, 0}).y()});
        for (int column = row.columns.first; const CellStrip& strip : row.strips) {
            m_cells->add(strip, tilePosition({position, column}));
            column += CellStrip::capacity;
        }
    }
    m_cells->end();
    m_rowHeaders->end();
}

void CrosspointMatrixView::addColumnTiles()
{
    const GridSpan columns = m_layout.columnsInView();
    const int top = -inPixels({0, m_painter.margin()}).y();
    m_columnHeaders->begin();
    for (int column = columns.first; column < columns.end; ++column)
        m_columnHeaders->add(*m_columns.constFind(column), {tilePosition({0, column}).x(), top});
    m_columnHeaders->end();
}

void CrosspointMatrixView::addCornerTile()
{
    m_corner->begin();
    if (m_layout.contains({0, GridPlace::header}) || m_layout.contains({GridPlace::header, 0}))
        m_corner->add(CornerTile{}, {});
    m_corner->end();
}

} // namespace corvane
