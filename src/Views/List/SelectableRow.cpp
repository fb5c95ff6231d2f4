#include "Views/List/SelectableRow.h"

namespace corvane {

using namespace Qt::StringLiterals;

QString SelectableRow::badgeSymbol() const
{
    return isCurrent ? u"checkmark.circle.fill"_s : u"plus.circle.fill"_s;
}

QString SelectableRow::badgeName() const
{
    return u"Toggle %1 in selection"_s.arg(spokenTitle);
}

QString SelectableRow::accessibleName() const
{
    QStringList parts{spokenTitle};
    if (spokenTitle == title)
        parts.append(numberText());
    if (spokenDetail)
        parts.append(*spokenDetail);
    if (locked)
        parts.append(u"locked"_s);
    return parts.join(u", "_s);
}

QString SelectableRow::accessibleHelp() const
{
    return isPending ? u"Staged"_s : QString();
}

} // namespace corvane
