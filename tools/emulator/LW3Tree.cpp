#include "emulator/LW3Tree.h"

#include "emulator/LW3Escape.h"

#include <algorithm>

namespace corvane::emulator {

namespace {

constexpr QByteArrayView statusBegin = "/MEDIA/PORTS/VIDEO/";
constexpr QByteArrayView statusEnd = "/STATUS";

LW3Property readOnly(const QByteArray& node, const QByteArray& name, const QByteArray& value)
{
    return {node, name, value, LW3Property::Access::ReadOnly};
}

} // namespace

QByteArray lw3::portName(Side side, int index)
{
    return (side == Side::Source ? 'I' : 'O') + QByteArray::number(index + 1);
}

QByteArray lw3::statusNode(int input)
{
    return portName(Side::Source, input).prepend(statusBegin).append(statusEnd);
}

QByteArray LW3Property::text() const
{
    return node + '.' + name + '=' + escapedForLW3(value);
}

std::optional<QList<LW3Property>> LW3Tree::properties(const QByteArray& node) const
{
    if (node == lw3::root)
        return deviceProperties();
    if (node == lw3::names)
        return nameProperties();
    if (node == lw3::crosspoints)
        return crosspointProperties();
    if (const auto input = inputOf(node))
        return statusProperties(*input);
    return std::nullopt;
}

std::optional<LW3Property> LW3Tree::property(const QByteArray& node, const QByteArray& name) const
{
    const auto all = properties(node).value_or(QList<LW3Property>());
    const auto found = std::ranges::find(all, name, &LW3Property::name);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

QList<QByteArray> LW3Tree::methods(const QByteArray& node) const
{
    if (node != lw3::crosspoints)
        return {};
    if (m_quirks.omitLocks)
        return {"switch"};
    return {"switch", "lockDestination", "unlockDestination"};
}

std::optional<LW3Tree::Port> LW3Tree::port(const QByteArray& name) const
{
    const auto side = name.startsWith('I') ? Side::Source : Side::Destination;
    const int index = name.mid(1).toInt() - 1;
    if (!m_matrix.has(side, index) || name != lw3::portName(side, index))
        return std::nullopt;
    return Port{side, index};
}

QList<LW3Property> LW3Tree::deviceProperties() const
{
    return {
        readOnly(lw3::root, "ProductName", productName()),
        readOnly(lw3::root, "SerialNumber", "00004711"),
        readOnly(lw3::root, "FirmwareVersion", "1.2.0b7"),
    };
}

QList<LW3Property> LW3Tree::nameProperties() const
{
    QList<LW3Property> result;
    for (const auto side : {Side::Source, Side::Destination}) {
        for (int index = 0; index < m_matrix.count(side); ++index) {
            const auto label = m_matrix.label(side, index).toUtf8();
            result << LW3Property{lw3::names, lw3::portName(side, index),
                m_quirks.plainNames ? label : m_quirks.namePrefix + ';' + label,
                LW3Property::Access::Writable};
        }
    }
    return result;
}

QList<LW3Property> LW3Tree::crosspointProperties() const
{
    QList<LW3Property> result{
        countOf(Side::Source, "SourcePortCount"),
        countOf(Side::Destination, "DestinationPortCount"),
        readOnly(lw3::crosspoints, lw3::routeList, list(&LW3Tree::routeItem)),
    };
    if (!m_quirks.omitLocks)
        result << readOnly(lw3::crosspoints, lw3::lockList, list(&LW3Tree::lockItem));
    return result;
}

QList<LW3Property> LW3Tree::statusProperties(int input) const
{
    const auto node = lw3::statusNode(input);
    const auto resolution = m_device.resolutions.value(input, input % 4 == 3 ? "" : "1920x1080p60");
    return {
        readOnly(node, "SignalPresent", resolution.isEmpty() ? "false" : "true"),
        readOnly(node, "ActiveResolution", resolution),
    };
}

LW3Property LW3Tree::countOf(Side side, const QByteArray& name) const
{
    return readOnly(lw3::crosspoints, name, QByteArray::number(m_matrix.count(side)));
}

QByteArray LW3Tree::list(QByteArray (LW3Tree::*item)(int) const) const
{
    QList<QByteArray> items;
    for (int destination = 0; destination < m_matrix.count(Side::Destination); ++destination)
        items << (this->*item)(destination);
    const auto text = items.join(';');
    return m_quirks.trailingSemicolon ? text + ';' : text;
}

QByteArray LW3Tree::routeItem(int destination) const
{
    const int source = m_matrix.source(0, destination);
    return source == noSource ? QByteArray("0") : lw3::portName(Side::Source, source);
}

QByteArray LW3Tree::lockItem(int destination) const
{
    // A letter for locked and muted, and four digits of connector and signal flags.
    return m_matrix.lockOwner(destination) ? "L00AA" : "T00AA";
}

QByteArray LW3Tree::productName() const
{
    if (!m_device.productName.isEmpty())
        return m_device.productName;
    return "MX2-" + QByteArray::number(m_matrix.count(Side::Source)) + 'x'
        + QByteArray::number(m_matrix.count(Side::Destination)) + "-HDMI20";
}

std::optional<int> LW3Tree::inputOf(const QByteArray& node) const
{
    const auto nameSize = node.size() - statusBegin.size() - statusEnd.size();
    if (nameSize <= 0 || !node.startsWith(statusBegin) || !node.endsWith(statusEnd))
        return std::nullopt;
    const auto input = port(node.mid(statusBegin.size(), nameSize));
    return input && input->side == Side::Source ? std::optional(input->index) : std::nullopt;
}

} // namespace corvane::emulator
