#pragma once

#include "Model/RouterModels.h"
#include "Theme/GlassPalette.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// How a link's status is shown everywhere.
struct StatusLook {
    Q_GADGET
    QML_VALUE_TYPE(statusLook)
    Q_PROPERTY(QString word MEMBER word FINAL)
    Q_PROPERTY(QColor color MEMBER color FINAL)
    Q_PROPERTY(bool glows MEMBER glows FINAL)
    Q_PROPERTY(bool pulses MEMBER pulses FINAL)

public:
    QString word;
    QColor color;
    /// The link is up.
    bool glows = false;
    /// The link is on its way up.
    bool pulses = false;

    bool operator==(const StatusLook&) const = default;
};
StatusLook statusLook(const ConnectionStatus& status, const GlassPalette& palette);

QColor vendorTint(RouterVendor vendor, const GlassPalette& palette);

/// A colour the operator may choose, by its hue from 0 to 1; the same in light and dark.
QColor hueColor(double hue);

/// The hue that the operator chose, or else the vendor's tint.
QColor routerColor(const RouterConnection& connection, const GlassPalette& palette);

/// By the level's kind; the accent for a level that the router doesn't have.
QColor levelTint(const RouterState& state, qint64 level, const GlassPalette& palette);

} // namespace corvane
