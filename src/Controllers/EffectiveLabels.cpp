#include "Controllers/EffectiveLabels.h"

#include "Model/Naming.h"

#include <algorithm>

namespace corvane {

namespace {

DeviceNames namesOf(const QList<Port>& ports)
{
    DeviceNames names;
    names.reserve(ports.size());
    for (const auto& port : ports)
        names.insert(port.index, naming::kept(port.label));
    return names;
}

qsizetype positionOf(const QList<Port>& ports, qint64 index)
{
    if (index >= 0 && index < ports.size() && ports.at(index).index == index)
        return index;
    const auto found = std::ranges::find(ports, index, &Port::index);
    return found == ports.cend() ? -1 : found - ports.cbegin();
}

bool applyLabelAt(
    QList<Port>& ports, qsizetype position, const CustomLabels& custom, const DeviceNames& device)
{
    const auto& port = ports.at(position);
    const auto label = effectiveLabel(port, custom, device);
    // Only a real change may detach the list from those who share it.
    if (port.label == label)
        return false;
    ports[position].label = label;
    return true;
}

} // namespace

DeviceLabels deviceLabels(const RouterState& state)
{
    return {namesOf(state.sources), namesOf(state.destinations)};
}

QString effectiveLabel(const Port& port, const CustomLabels& custom, const DeviceNames& device)
{
    if (!custom.isEmpty()) {
        if (const auto found = custom.constFind(QString::number(port.index)); found != custom.constEnd())
            return *found;
    }
    return device.value(port.index, port.label);
}

bool applyLabels(QList<Port>& ports, const CustomLabels& custom, const DeviceNames& device)
{
    bool isChanged = false;
    for (qsizetype position = 0; position < ports.size(); ++position)
        isChanged |= applyLabelAt(ports, position, custom, device);
    return isChanged;
}

bool applyLabel(QList<Port>& ports, qint64 index, const CustomLabels& custom, const DeviceNames& device)
{
    const auto position = positionOf(ports, index);
    return position >= 0 && applyLabelAt(ports, position, custom, device);
}

} // namespace corvane
