#pragma once

#include <QObject>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// A panel as tabs, menu and manager list it, or the full router, whose id is null.
struct PanelItem {
    Q_GADGET
    QML_VALUE_TYPE(panelItem)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString size MEMBER size FINAL)
    Q_PROPERTY(bool isActive MEMBER isActive FINAL)

public:
    QUuid id{};
    QString name{};
    /// "8 in × 2 out"; empty for the full router.
    QString size{};
    bool isActive = false;

    [[nodiscard]] const QUuid& key() const { return id; }
    [[nodiscard]] bool isFullRouter() const { return id.isNull(); }

    bool operator==(const PanelItem&) const = default;
};

} // namespace corvane
