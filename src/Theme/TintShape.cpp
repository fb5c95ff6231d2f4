#include "Theme/TintShape.h"

#include <QPainter>

namespace corvane {

namespace {

/// How much darker the lower edge is, in percent of the upper one.
constexpr int depth = 112;

} // namespace

void TintShape::setColor(const QColor& color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
    emit colorChanged();
}

void TintShape::setRadius(double radius)
{
    if (radius == m_radius)
        return;
    m_radius = radius;
    update();
    emit radiusChanged();
}

void TintShape::paint(QPainter* painter)
{
    const QRectF area = boundingRect();
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, m_color);
    gradient.setColorAt(1, m_color.darker(depth));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(gradient);
    painter->drawRoundedRect(area, m_radius, m_radius);
}

} // namespace corvane
