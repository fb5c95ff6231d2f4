#include "Views/PaneContent.h"

namespace corvane {

QStringList PaneContent::actionLabels() const
{
    QStringList labels;
    for (const auto& action : headerActions)
        labels.append(action.label);
    return labels;
}

QStringList PaneContent::actionSymbols() const
{
    QStringList symbols;
    for (const auto& action : headerActions)
        symbols.append(action.symbol);
    return symbols;
}

} // namespace corvane
