#include "Views/Shared/WheelDistance.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace corvane {

namespace {

/// A notch of a wheel is 120 of the angle's units.
constexpr double angleOfNotch = 120;
constexpr double pointsOfLine = 24;

} // namespace

QPointF wheelDistance(QPointF pixelDelta, QPointF angleDelta)
{
    if (!pixelDelta.isNull())
        return pixelDelta;
    return angleDelta / angleOfNotch * pointsOfLine * QGuiApplication::styleHints()->wheelScrollLines();
}

} // namespace corvane
