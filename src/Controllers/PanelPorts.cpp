#include "Controllers/PanelPorts.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QList<Port> shown(const QList<qint64>& indices, const QList<Port>& ports)
{
    QHash<qint64, qsizetype> positions;
    positions.reserve(ports.size());
    for (qsizetype position = 0; position < ports.size(); ++position)
        positions.insert(ports.at(position).index, position);

    QList<Port> result;
    for (const auto index : indices) {
        if (const auto found = positions.constFind(index); found != positions.constEnd())
            result.append(ports.at(*found));
    }
    return result;
}

} // namespace

VisiblePorts panelPorts(const SubPanel& panel, const RouterState& state)
{
    return {shown(panel.sourceIndices, state.sources), shown(panel.destinationIndices, state.destinations)};
}

QString newPanelName(const QList<SubPanel>& panels)
{
    QSet<QString> taken;
    for (const auto& panel : panels)
        taken.insert(panel.name.toLower());
    auto number = panels.size() + 1;
    while (taken.contains(u"panel %1"_s.arg(number)))
        ++number;
    return u"Panel %1"_s.arg(number);
}

QList<SubPanel> movedAsBlock(
    const QList<SubPanel>& panels, const QSet<qsizetype>& fromOffsets, qsizetype toOffset)
{
    QList<SubPanel> before;
    QList<SubPanel> block;
    QList<SubPanel> after;
    for (qsizetype position = 0; position < panels.size(); ++position) {
        auto& staying = position < toOffset ? before : after;
        auto& part = fromOffsets.contains(position) ? block : staying;
        part.append(panels.at(position));
    }
    return before + block + after;
}

} // namespace corvane
