#pragma once

#include <QPointF>

namespace corvane {

/// How far a turn of the wheel moves content, in points: what the device says of points, or else a few lines
/// for each notch. At once and without a glide, so that the next click hits what was aimed at.
[[nodiscard]] QPointF wheelDistance(QPointF pixelDelta, QPointF angleDelta);

} // namespace corvane
