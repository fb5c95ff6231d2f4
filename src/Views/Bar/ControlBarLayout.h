#pragma once

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// How large the parts of the floating bar want to be. A part that is not shown is empty.
struct ControlBarParts {
    QSizeF levelPicker;
    QSizeF followButton;
    QSizeF zoom;
    QSizeF takeCluster;
};

/// Where the parts of the floating bar stand, measured from the bar's upper left corner. A part without a
/// place is empty.
struct ControlBarPlaces {
    Q_GADGET
    QML_VALUE_TYPE(controlBarPlaces)
    Q_PROPERTY(QSizeF bar MEMBER bar FINAL)
    Q_PROPERTY(QRectF levelPicker MEMBER levelPicker FINAL)
    Q_PROPERTY(QRectF followButton MEMBER followButton FINAL)
    Q_PROPERTY(QRectF zoomDivider MEMBER zoomDivider FINAL)
    Q_PROPERTY(QRectF zoom MEMBER zoom FINAL)
    Q_PROPERTY(QRectF takeDivider MEMBER takeDivider FINAL)
    Q_PROPERTY(QRectF takeCluster MEMBER takeCluster FINAL)

public:
    QSizeF bar;
    QRectF levelPicker;
    QRectF followButton;
    QRectF zoomDivider;
    QRectF zoom;
    QRectF takeDivider;
    QRectF takeCluster;

    bool operator==(const ControlBarPlaces&) const = default;
};

/// Arranges the parts in the first of these ways that fits `availableWidth`: all in one row; the take cluster
/// in a second row; the follow button, the levels with the zoom, and the take cluster in three rows, without
/// dividers. In three rows the level picker takes what is left of its row, if that is less than it wants.
[[nodiscard]] ControlBarPlaces layOutControlBar(const ControlBarParts& parts, double availableWidth);

} // namespace corvane
