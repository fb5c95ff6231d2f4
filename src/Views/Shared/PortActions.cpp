#include "Views/Shared/PortActions.h"

namespace corvane {

using namespace Qt::StringLiterals;

QList<MenuAction> portMenu(MatrixController& controller, const PortRef& port)
{
    const auto rename = [&controller, port] { controller.beginRename(port.kind, port.index); };
    if (port.kind == PortKind::source)
        return {{u"Rename Source…"_s, u"pencil"_s, rename, Qt::Key_F2}};
    const bool isLocked = controller.state().isLocked(port.index);
    return {
        {u"Rename Destination…"_s, u"pencil"_s, rename, Qt::Key_F2},
        {isLocked ? u"Unlock"_s : u"Lock"_s, isLocked ? u"lock.open"_s : u"lock"_s,
            [&controller, port] { controller.toggleLock(port.index); }, Qt::Key_L},
    };
}

} // namespace corvane
