#pragma once

#include "Theme/GlassPalette.h"
#include "Views/GridRowView.h"

#include <QHash>
#include <QImage>
#include <QList>

class QPainter;

namespace corvane {

/// What all pictures of the grid have in common.
struct GridStyle {
    const GlassPalette* palette = &GlassPalette::dark();
    QColor tint;
    double cell = 44;
    double gap = 5;
    int destWidth = 138;
    int headerHeight = 104;
    /// Whether each cell is a thing of its own; above the limit the field is painted plainer, with no lock
    /// glyphs.
    bool hoverEnabled = true;
    double devicePixelRatio = 1;
    bool operator==(const GridStyle&) const = default;
};

/// How one cell is drawn just now: what it says, and how far it is on its way there.
struct CellLook {
    static constexpr int connectionSteps = 16;
    static constexpr int hoverSteps = 8;

    bool isPending = false;
    bool highlighted = false;
    bool locked = false;
    bool hasFocus = false;
    /// 0 not connected … `connectionSteps` connected.
    int connection = 0;
    /// 0 as it lies … `hoverSteps` raised.
    int hover = 0;

    bool operator==(const CellLook&) const = default;
    /// All of it in one number that is a valid character.
    [[nodiscard]] char16_t packed() const;
};

/// Paints the pictures that the grid is put together from. All but the corner's have a margin around what
/// they show, in which a raised cell and the focus ring find room.
class GridPainter {
public:
    [[nodiscard]] const GridStyle& style() const { return m_style; }
    void setStyle(const GridStyle& style);

    /// Neighbouring cells of one row.
    [[nodiscard]] QImage cells(const QList<CellLook>& looks);
    [[nodiscard]] QImage rowHeader(const DestinationRowHeader& header, bool hasFocus) const;
    [[nodiscard]] QImage columnHeader(const SourceColumnHeader& header, bool hasFocus) const;
    [[nodiscard]] QImage corner() const;

    /// Where a position begins, in device pixels from where position 0 begins.
    [[nodiscard]] int devicePosition(int position) const;
    /// About half a gap, in points that are whole device pixels.
    [[nodiscard]] double margin() const;

private:
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
    QHash<char16_t, QImage> m_sprites;
};

} // namespace corvane
