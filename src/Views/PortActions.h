#pragma once

#include "Controllers/MatrixController.h"

#include <QVariant>

namespace corvane {

/// One thing that can be done at a place where a port is shown, by its menu or by a screen reader.
struct PortAction {
    enum class Kind { press, routeToSelectedDestination, toggleInGang, rename, toggleLock };

    Kind kind = Kind::press;
    QString name;
    /// The theme's symbol for it in a menu.
    QString symbol;
    bool operator==(const PortAction&) const = default;
};

/// What the context menu of a port offers, wherever it is shown.
[[nodiscard]] QList<PortAction> portMenu(const MatrixController& controller, const PortRef& port);

/// The same as a menu in QML takes it: entries with "text" and "symbol".
[[nodiscard]] QVariantList menuEntries(const QList<PortAction>& actions);

} // namespace corvane
