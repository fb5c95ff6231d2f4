#include "Views/Shared/MenuAction.h"

#include <algorithm>

namespace corvane {

QVariantList toVariants(const QList<MenuAction>& actions)
{
    QVariantList variants;
    for (const auto& action : actions)
        variants.append(QVariant::fromValue(action));
    return variants;
}

void runAction(const QList<MenuAction>& offered, const QString& text)
{
    const auto wanted = std::ranges::find(offered, text, &MenuAction::text);
    if (wanted != offered.cend() && wanted->isEnabled && wanted->run)
        wanted->run();
}

bool runAction(const QList<MenuAction>& offered, QKeyCombination key)
{
    const auto wanted = std::ranges::find(offered, key, &MenuAction::key);
    if (wanted == offered.cend() || !wanted->isEnabled || !wanted->run)
        return false;
    wanted->run();
    return true;
}

} // namespace corvane
