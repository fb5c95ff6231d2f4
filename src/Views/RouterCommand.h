#pragma once

#include "Model/RouterModels.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Something that can be done with one saved router.
struct RouterCommand {
    Q_GADGET
    QML_VALUE_TYPE(routerCommand)
    Q_PROPERTY(QString text MEMBER text FINAL)
    Q_PROPERTY(QString symbol MEMBER symbol FINAL)
    Q_PROPERTY(bool isDestructive MEMBER isDestructive FINAL)

public:
    enum class Kind { edit, disconnect, remove };

    QUuid router;
    Kind kind = Kind::edit;
    QString text;
    QString symbol;
    bool isDestructive = false;

    bool operator==(const RouterCommand&) const = default;
};

/// What a router in this status offers, in the order of its context menu.
[[nodiscard]] QList<RouterCommand> routerCommands(const QUuid& router, const ConnectionStatus& status);

} // namespace corvane
