#include "Views/RouterCommand.h"

namespace corvane {

QList<RouterCommand> routerCommands(const QUuid& router, const ConnectionStatus& status)
{
    using Kind = RouterCommand::Kind;
    QList<RouterCommand> commands{{router, Kind::edit, QStringLiteral("Edit…"), QStringLiteral("pencil")}};
    if (std::holds_alternative<Connected>(status))
        commands.append(
            {router, Kind::disconnect, QStringLiteral("Disconnect"), QStringLiteral("bolt.slash")});
    commands.append({router, Kind::remove, QStringLiteral("Delete…"), QStringLiteral("trash"), true});
    return commands;
}

} // namespace corvane
