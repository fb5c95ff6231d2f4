#include "Views/Grid/GridRowView.h"

#include "Views/Shared/PortTexts.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString nameAndNumber(const Port& port)
{
    const QString name = portTexts::spokenName(port);
    // Without a label the name is the number already.
    return name == port.label ? u"%1, %2"_s.arg(name, QString::number(port.index + 1)) : name;
}

} // namespace

QString SourceColumnHeader::label() const
{
    return nameAndNumber(source);
}

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

QString GridRowView::headerLabel() const
{
    const Port feed{routedSource.value_or(0), PortKind::source, routedLabel};
    QStringList parts{nameAndNumber(dest), portTexts::spokenName(feed)};
    if (offPanelFeed)
        parts.append(u"from outside the panel"_s);
    if (locked)
        parts.append(u"locked"_s);
    return parts.join(u", "_s);
}

QString GridRowView::cellLabel(qsizetype column) const
{
    return u"%1 from %2"_s.arg(portTexts::spokenName(dest), portTexts::spokenName(sources.at(column)));
}

QString GridRowView::cellValue(qsizetype column) const
{
    return cellAt(column).isConnected ? u"Connected"_s : u"Not connected"_s;
}

} // namespace corvane
