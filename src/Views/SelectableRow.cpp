#include "Views/SelectableRow.h"

namespace corvane {

QString SelectableRow::badgeSymbol() const
{
    return isCurrent ? QStringLiteral("checkmark.circle.fill") : QStringLiteral("plus.circle.fill");
}

QString SelectableRow::badgeName() const
{
    return QStringLiteral("Toggle %1 in selection").arg(title);
}

QString SelectableRow::accessibleName() const
{
    QStringList parts{title, numberText()};
    if (detail)
        parts.append(*detail);
    if (locked)
        parts.append(QStringLiteral("locked"));
    return parts.join(QStringLiteral(", "));
}

QString SelectableRow::accessibleValue() const
{
    return isPending ? QStringLiteral("Staged") : QString();
}

} // namespace corvane
