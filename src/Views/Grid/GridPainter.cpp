#include "Views/Grid/GridPainter.h"

#include "Theme/Contrast.h"
#include "Theme/Fonts.h"
#include "Theme/Symbols.h"
#include "Views/Grid/GridFonts.h"
#include "Views/Grid/LabelWidths.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRadialGradient>

#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double cellRadius = 10;
constexpr double raisedScale = 1.07;
constexpr double headerPadding = 10;
constexpr double numberColumn = 22;
constexpr double focusRingWidth = 2;

/// A painter that draws smooth edges.
class SmoothPainter final : public QPainter {
public:
    explicit SmoothPainter(QImage& image) : QPainter(&image)
    {
        setRenderHints(Antialiasing | TextAntialiasing);
    }
};

void fill(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(rect, radius, radius);
}

/// A line inside the shape's edge.
void strokeInside(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width)
{
    const double inset = width / 2;
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
}

void drawText(QPainter& painter, const QRectF& rect, const QFont& font, const QColor& color, int flags,
    const QString& text)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, flags | Qt::TextSingleLine | Qt::TextDontClip, text);
}

QString glyph(QStringView symbol)
{
    return {QChar(symbolGlyph(symbol).value_or(u' '))};
}

QString elided(const QString& text, const QFont& font, double width)
{
    return QFontMetricsF(font).elidedText(visiblePart(text), Qt::ElideRight, width);
}

QColor mixed(const QColor& color, const QColor& other, double share)
{
    const auto part = [share](float a, float b) { return float(a + (b - a) * share); };
    return QColor::fromRgbF(part(color.redF(), other.redF()), part(color.greenF(), other.greenF()),
        part(color.blueF(), other.blueF()), color.alphaF());
}

} // namespace

QImage GridPainter::paint(const GridTile& tile)
{
    return std::visit([this](const auto& alternative) { return picture(alternative); }, tile);
}

void GridPainter::setStyle(const GridStyle& style)
{
    m_style = style;
    m_sprites.clear();
}

int GridPainter::devicePosition(int position) const
{
    return static_cast<int>(std::lround(position * stride() * m_style.devicePixelRatio));
}

double GridPainter::margin() const
{
    return std::floor(m_style.gap / 2 * m_style.devicePixelRatio) / m_style.devicePixelRatio;
}

QRectF GridPainter::cellRect() const
{
    const double side = std::round(m_style.cell * m_style.devicePixelRatio) / m_style.devicePixelRatio;
    return {margin(), margin(), side, side};
}

QImage GridPainter::blank(QSizeF size) const
{
    const QSizeF inPixels = size * m_style.devicePixelRatio;
    const QSize pixels(
        std::max(1, int(std::ceil(inPixels.width()))), std::max(1, int(std::ceil(inPixels.height()))));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_style.devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

QImage GridPainter::picture(const CellStrip& strip)
{
    QImage image = blank({stride() * strip.count, stride()});
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int position = 0; position < strip.count; ++position) {
        // Sprites go to whole device pixels, where they are copied and not resampled.
        const double x = devicePosition(position) / m_style.devicePixelRatio;
        painter.drawImage(QPointF(x, 0), sprite(strip.looks.at(size_t(position))));
    }
    return image;
}

const QImage& GridPainter::sprite(const CellLook& look)
{
    constexpr qsizetype plenty = 512;
    if (m_sprites.size() > plenty)
        m_sprites.clear();
    QImage& sprite = m_sprites[look];
    if (sprite.isNull()) {
        sprite = blank({stride(), stride()});
        SmoothPainter painter(sprite);
        paintCell(painter, look);
    }
    return sprite;
}

void GridPainter::paintCell(QPainter& painter, const CellLook& look) const
{
    const QRectF atRest = cellRect();
    const double growth = atRest.width() * (raisedScale - 1) / 2 * look.hover / CellLook::hoverSteps;
    const QRectF rect = atRest.adjusted(-growth, -growth, growth, growth);

    if (look.connection < CellLook::connectionSteps)
        paintIdle(painter, rect, look);
    if (look.connection > 0) {
        painter.setOpacity(double(look.connection) / CellLook::connectionSteps);
        paintConnected(painter, rect);
        painter.setOpacity(1);
    }
    if (look.isPending)
        strokeInside(painter, rect, cellRadius, m_style.tint, 2.5);
    if (look.hasFocus)
        strokeInside(painter, rect.adjusted(-focusRingWidth, -focusRingWidth, focusRingWidth, focusRingWidth),
            cellRadius + focusRingWidth, palette().text, focusRingWidth);
}

void GridPainter::paintIdle(QPainter& painter, const QRectF& rect, const CellLook& look) const
{
    if (look.highlighted)
        fill(painter, rect, cellRadius, withOpacity(m_style.tint, 0.16));
    else if (m_style.hoverEnabled)
        fill(painter, rect, cellRadius,
            withOpacity(palette().quaternary, 0.45 + 0.45 * look.hover / CellLook::hoverSteps));
    else
        fill(painter, rect, cellRadius, withOpacity(palette().text, look.locked ? 0.035 : 0.07));

    if (!m_style.hoverEnabled)
        return;
    if (!look.isPending)
        strokeInside(painter, rect, cellRadius, withOpacity(palette().separator, 0.4), 1);
    if (look.locked)
        drawText(painter, rect, Fonts::symbol(12), withOpacity(tintText(palette().orange, palette()), 0.8),
            Qt::AlignCenter, glyph(u"lock.fill"));
}

void GridPainter::paintConnected(QPainter& painter, const QRectF& rect) const
{
    if (!m_style.hoverEnabled) {
        fill(painter, rect, cellRadius, m_style.tint);
        paintCircle(painter, rect);
        return;
    }
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, mixed(m_style.tint, Qt::white, 0.16));
    gradient.setColorAt(1, m_style.tint);
    fill(painter, rect, cellRadius, gradient);
    strokeInside(painter, rect, cellRadius, withOpacity(Qt::white, 0.25), 1);
    paintCircle(painter, rect);
}

void GridPainter::paintCircle(QPainter& painter, const QRectF& rect) const
{
    const double radius = m_style.cell * 0.11;
    painter.setPen(Qt::NoPen);
    if (m_style.hoverEnabled) {
        const QPointF below = rect.center() + QPointF(0, 1);
        const double reach = radius + 2;
        QRadialGradient shadow(below, reach);
        shadow.setColorAt(std::max(0.0, (radius - 1) / reach), withOpacity(Qt::black, 0.25));
        shadow.setColorAt(1, Qt::transparent);
        painter.setBrush(shadow);
        painter.drawEllipse(below, reach, reach);
    }
    painter.setBrush(Qt::white);
    painter.drawEllipse(rect.center(), radius, radius);
}

QImage GridPainter::picture(const RowHeaderTile& tile)
{
    const auto& [header, hasFocus] = tile;
    QImage image = blank({m_style.destWidth + m_style.gap, stride()});
    SmoothPainter painter(image);
    const QRectF rect(margin(), margin(), m_style.destWidth, cellRect().height());

    fill(painter, rect, cellRadius, palette().surface);
    const QRectF inner = rect.adjusted(1, 1, -1, -1);
    fill(painter, inner, 9,
        header.isPendingDest ? withOpacity(m_style.tint, 0.22) : withOpacity(palette().orange, 0.08));
    if (header.isPendingDest)
        strokeInside(painter, rect, cellRadius, m_style.tint, 1.5);
    else
        strokeInside(painter, rect, cellRadius, palette().separator, 1);
    paintRowTexts(painter, rect.adjusted(headerPadding, 0, -headerPadding, 0), header);
    if (hasFocus)
        strokeInside(painter, rect, cellRadius, palette().text, focusRingWidth);
    return image;
}

void GridPainter::paintRowTexts(
    QPainter& painter, const QRectF& rect, const DestinationRowHeader& header) const
{
    constexpr double labelHeight = 15;
    constexpr double routedHeight = 12;
    constexpr double lockColumn = 16;
    drawText(painter, rect, gridFonts::destinationNumber(),
        header.isPendingDest ? palette().text : tintText(palette().orange, palette()),
        Qt::AlignLeft | Qt::AlignVCenter, QString::number(header.dest.index + 1));
    if (header.locked)
        drawText(painter, rect, Fonts::symbol(12), palette().orange, Qt::AlignRight | Qt::AlignVCenter,
            glyph(u"lock.fill"));

    QRectF texts = rect.adjusted(numberColumn + 6, 0, header.locked ? -lockColumn : 0, 0);
    texts.setTop(rect.center().y() - (labelHeight + routedHeight) / 2);
    const QFont labelFont = gridFonts::destinationLabel();
    texts.setHeight(labelHeight);
    drawText(painter, texts, labelFont, palette().text, Qt::AlignLeft | Qt::AlignVCenter,
        elided(header.dest.label, labelFont, texts.width()));

    const QFont routedFont = gridFonts::routedLabel();
    constexpr double arrowWidth = 10;
    texts.translate(0, labelHeight);
    texts.setHeight(routedHeight);
    const QString routed =
        elided(header.routedLabel, routedFont, texts.width() - (header.offPanelFeed ? arrowWidth : 0));
    drawText(painter, texts, routedFont, palette().secondary, Qt::AlignLeft | Qt::AlignVCenter, routed);
    if (header.offPanelFeed) {
        texts.setLeft(texts.left() + QFontMetricsF(routedFont).horizontalAdvance(routed) + 2);
        drawText(painter, texts, Fonts::symbol(9), palette().secondary, Qt::AlignLeft | Qt::AlignVCenter,
            glyph(u"arrow.up.forward"));
    }
}

QImage GridPainter::picture(const ColumnHeaderTile& tile)
{
    const auto& [header, hasFocus] = tile;
    QImage image = blank({stride(), m_style.headerHeight + m_style.gap});
    SmoothPainter painter(image);
    const QRectF rect(margin(), margin(), cellRect().width(), m_style.headerHeight);

    constexpr double radius = 8;
    fill(painter, rect, radius,
        header.isArmed ? withOpacity(m_style.tint, 0.16) : withOpacity(palette().green, 0.06));
    paintRotatedLabel(painter, rect.adjusted(0, 0, 0, -30), header.source.label);
    const QRectF number(rect.left(), rect.bottom() - 30, rect.width(), 14);
    drawText(painter, number, gridFonts::sourceNumber(),
        tintText(header.isArmed ? m_style.tint : palette().green, palette()), Qt::AlignCenter,
        QString::number(header.source.index + 1));
    if (header.signalPresent) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(*header.signalPresent ? palette().green : palette().quaternary);
        painter.drawEllipse(QPointF(rect.center().x(), rect.bottom() - 9.5), 2.5, 2.5);
    }
    if (hasFocus)
        strokeInside(painter, rect, radius, palette().text, focusRingWidth);
    return image;
}

void GridPainter::paintRotatedLabel(QPainter& painter, const QRectF& frame, const QString& label) const
{
    const double length = m_style.headerHeight - 36;
    const QFont font = gridFonts::sourceLabel();
    painter.save();
    painter.translate(frame.center());
    painter.rotate(-90);
    drawText(painter, QRectF(-length / 2, -frame.width() / 2, length, frame.width()), font, palette().text,
        Qt::AlignCenter, elided(label, font, length));
    painter.restore();
}

QImage GridPainter::picture(const CornerTile&)
{
    QImage image = blank(QSizeF(m_style.destWidth, m_style.headerHeight));
    SmoothPainter painter(image);
    const QRectF rect(0, 0, m_style.destWidth, m_style.headerHeight);
    fill(painter, rect, cellRadius, palette().surface);
    strokeInside(painter, rect, cellRadius, palette().separator, 1);

    const auto label = [&](const QRectF& line, const QColor& color, QStringView symbol, const QString& text) {
        drawText(painter, line, Fonts::symbol(12), color, Qt::AlignLeft | Qt::AlignVCenter, glyph(symbol));
        drawText(painter, line.adjusted(15, 0, 0, 0), gridFonts::corner(), color,
            Qt::AlignLeft | Qt::AlignVCenter, text);
    };
    const QRectF inner = rect.adjusted(headerPadding, headerPadding, -headerPadding, -headerPadding);
    label({inner.left(), inner.top(), inner.width(), 12}, tintText(palette().green, palette()),
        u"arrow.right", u"SOURCES"_s);
    label({inner.left(), inner.bottom() - 12, inner.width(), 12}, tintText(palette().orange, palette()),
        u"arrow.down", u"DESTINATIONS"_s);
    return image;
}

} // namespace corvane
