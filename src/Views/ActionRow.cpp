#include "Views/ActionRow.h"

#include "Views/ActionRowAccessible.h"

namespace corvane {

ActionRow::ActionRow(QQuickItem* parent) : QQuickItem(parent)
{
    ActionRowAccessible::install();
}

void ActionRow::setActionNames(const QStringList& names)
{
    if (names == m_actionNames)
        return;
    m_actionNames = names;
    emit actionNamesChanged();
}

} // namespace corvane
