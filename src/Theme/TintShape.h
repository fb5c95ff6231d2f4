#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace corvane {

/// A shape with round corners in the gradient form of a tint: a little deeper towards its lower edge. A
/// `Rectangle` with a gradient has rough corners where there is no graphics card.
class TintShape : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)

public:
    using QQuickPaintedItem::QQuickPaintedItem;

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor& color);
    [[nodiscard]] double radius() const { return m_radius; }
    void setRadius(double radius);

    void paint(QPainter* painter) override;

signals:
    void colorChanged();
    void radiusChanged();

private:
    QColor m_color;
    double m_radius = 0;
};

} // namespace corvane
