#pragma once

#include "Theme/Tints.h"

#include <QUuid>

namespace corvane {

/// One saved router as the sidebar lists it.
struct RouterRow {
    Q_GADGET
    QML_VALUE_TYPE(routerRow)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString endpoint MEMBER endpoint FINAL)
    Q_PROPERTY(QString symbol MEMBER symbol FINAL)
    Q_PROPERTY(QColor tint MEMBER tint FINAL)
    Q_PROPERTY(corvane::StatusLook status MEMBER status FINAL)
    Q_PROPERTY(bool isSelected MEMBER isSelected FINAL)

public:
    QUuid id;
    QString name;
    QString endpoint;
    QString symbol;
    QColor tint;
    StatusLook status;
    bool isConnected = false;
    bool isSelected = false;

    [[nodiscard]] const QUuid& key() const { return id; }

    bool operator==(const RouterRow&) const = default;
};

} // namespace corvane
