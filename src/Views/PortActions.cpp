#include "Views/PortActions.h"

namespace corvane {

QList<PortAction> portMenu(const MatrixController& controller, const PortRef& port)
{
    using Kind = PortAction::Kind;
    const QString pencil = QStringLiteral("pencil");
    if (port.kind == PortKind::source)
        return {{Kind::rename, QStringLiteral("Rename Source…"), pencil}};
    const bool isLocked = controller.state().isLocked(port.index);
    return {
        {Kind::rename, QStringLiteral("Rename Destination…"), pencil},
        {Kind::toggleLock, isLocked ? QStringLiteral("Unlock") : QStringLiteral("Lock"),
            isLocked ? QStringLiteral("lock.open") : QStringLiteral("lock")},
    };
}

QVariantList menuEntries(const QList<PortAction>& actions)
{
    QVariantList entries;
    for (const auto& action : actions)
        entries.append(
            QVariantMap{{QStringLiteral("text"), action.name}, {QStringLiteral("symbol"), action.symbol}});
    return entries;
}

} // namespace corvane
