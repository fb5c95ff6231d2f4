#include "Views/GridRowView.h"

namespace corvane {

DestinationRowHeader GridRowView::header() const
{
    return {dest, routedLabel, offPanelFeed, locked, isPendingDest};
}

CrosspointCell GridRowView::cellAt(qsizetype column) const
{
    const qint64 source = sources.at(column).index;
    const bool isArmed = armedSource == source;
    return {
        .isConnected = routedSource == source,
        .isPending = isPendingDest && isArmed,
        .highlighted = isPendingDest || isArmed,
        .locked = locked,
    };
}

QString GridRowView::cellLabel(qsizetype column) const
{
    return QStringLiteral("%1 from %2").arg(dest.label, sources.at(column).label);
}

QString GridRowView::cellValue(qsizetype column) const
{
    return cellAt(column).isConnected ? QStringLiteral("Connected") : QStringLiteral("Not connected");
}

} // namespace corvane
