#pragma once

#include "Theme/GlassPalette.h"
#include "Views/Grid/GridTile.h"

#include <QHash>
#include <QImage>

class QPainter;

namespace corvane {

/// What all pictures of the grid have in common.
struct GridStyle {
    const GlassPalette* palette = nullptr;
    QColor tint;
    double cell = 0;
    double gap = 0;
    int destWidth = 0;
    int headerHeight = 0;
    /// Whether each cell is an item of its own; above the limit the field is painted plainer, with no lock
    /// glyphs.
    bool hoverEnabled = true;
    double devicePixelRatio = 1;
    bool operator==(const GridStyle&) const = default;
};

/// Paints the pictures of the grid's tiles. All but the corner's have a margin around what they show, which
/// leaves room for a raised cell and the focus ring.
class GridPainter {
public:
    [[nodiscard]] const GridStyle& style() const { return m_style; }
    void setStyle(const GridStyle& style);

    [[nodiscard]] QImage paint(const GridTile& tile);

    /// Where a position begins, in device pixels from where position 0 begins.
    [[nodiscard]] int devicePosition(int position) const;
    /// About half a gap, in points that are whole device pixels.
    [[nodiscard]] double margin() const;

private:
    [[nodiscard]] QImage picture(const CellStrip& strip);
    [[nodiscard]] QImage picture(const RowHeaderTile& tile);
    [[nodiscard]] QImage picture(const ColumnHeaderTile& tile);
    [[nodiscard]] QImage picture(const CornerTile& tile);
    [[nodiscard]] QRectF cellRect() const;
    [[nodiscard]] const QImage& sprite(const CellLook& look);
    void paintCell(QPainter& painter, const CellLook& look) const;
    void paintIdle(QPainter& painter, const QRectF& rect, const CellLook& look) const;
    void paintConnected(QPainter& painter, const QRectF& rect) const;
    void paintCircle(QPainter& painter, const QRectF& rect) const;
    void paintRowTexts(QPainter& painter, const QRectF& rect, const DestinationRowHeader& header) const;
    void paintRotatedLabel(QPainter& painter, const QRectF& frame, const QString& label) const;
    [[nodiscard]] QImage blank(QSizeF size) const;
    [[nodiscard]] double stride() const { return m_style.cell + m_style.gap; }
    [[nodiscard]] const GlassPalette& palette() const { return *m_style.palette; }

    GridStyle m_style;
    QHash<CellLook, QImage> m_sprites;
};

} // namespace corvane
