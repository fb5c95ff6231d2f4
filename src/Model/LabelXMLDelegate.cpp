#include "Model/LabelXMLDelegate.h"

#include "Foundation/Text.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Names = std::span<const QLatin1StringView>;

constexpr std::array sourceContainers = {"sources"_L1, "inputs"_L1, "sourcelist"_L1, "inputlist"_L1};
constexpr std::array destinationContainers = {
    "destinations"_L1, "outputs"_L1, "destinationlist"_L1, "outputlist"_L1};
constexpr std::array sourceElements = {"source"_L1, "input"_L1, "in"_L1, "src"_L1};
constexpr std::array destinationElements = {"destination"_L1, "output"_L1, "out"_L1, "dst"_L1, "dest"_L1};
/// Their kind is that of the container around them.
constexpr std::array portElements = {
    "port"_L1, "label"_L1, "entry"_L1, "item"_L1, "row"_L1, "io"_L1, "xpt"_L1};
/// The first that is there holds.
constexpr std::array numberAttributes = {
    "index"_L1, "number"_L1, "id"_L1, "n"_L1, "num"_L1, "idx"_L1, "port"_L1};
constexpr std::array nameAttributes = {"name"_L1, "label"_L1, "title"_L1, "text"_L1, "value"_L1, "alias"_L1};

bool isSame(QStringView name, QLatin1StringView lowered)
{
    return name.size() == lowered.size() && name.compare(lowered, Qt::CaseInsensitive) == 0;
}

bool isAmong(Names names, QStringView name)
{
    return std::ranges::any_of(names, [name](auto known) { return isSame(name, known); });
}

std::optional<PortKind> kindOfContainer(QStringView name)
{
    if (isAmong(sourceContainers, name))
        return PortKind::source;
    if (isAmong(destinationContainers, name))
        return PortKind::destination;
    return std::nullopt;
}

/// The value of the first of `names` that is there; of attributes that differ in case alone, the one met
/// first.
std::optional<QStringView> valueOf(Names names, const QXmlStreamAttributes& attributes)
{
    for (const auto name : names) {
        const auto found = std::ranges::find_if(
            attributes, [name](const auto& attribute) { return isSame(attribute.qualifiedName(), name); });
        if (found != attributes.cend())
            return found->value();
    }
    return std::nullopt;
}

std::optional<qint64> numberIn(const QXmlStreamAttributes& attributes)
{
    const auto value = valueOf(numberAttributes, attributes);
    if (!value)
        return std::nullopt;
    const auto bytes = text::trimBlanks(*value).toUtf8();
    return text::decimalInteger({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace

void LabelXMLDelegate::startElement(QStringView name, const QXmlStreamAttributes& attributes)
{
    m_characters.clear();
    if (const auto container = kindOfContainer(name)) {
        m_containers.append(*container);
        return;
    }
    const auto kind = kindOfPort(name);
    if (!kind) {
        m_pending.reset();
        return;
    }
    m_pending = PendingPort{.kind = *kind,
        .number = numberIn(attributes),
        .name = valueOf(nameAttributes, attributes).value_or(QStringView()).toString()};
}

std::optional<PortKind> LabelXMLDelegate::kindOfPort(QStringView name) const
{
    if (isAmong(sourceElements, name))
        return PortKind::source;
    if (isAmong(destinationElements, name))
        return PortKind::destination;
    if (isAmong(portElements, name) && !m_containers.isEmpty())
        return m_containers.last();
    return std::nullopt;
}

void LabelXMLDelegate::endElement(QStringView name)
{
    if (kindOfContainer(name)) {
        if (!m_containers.isEmpty())
            m_containers.removeLast();
        return;
    }
    if (const auto port = std::exchange(m_pending, std::nullopt)) {
        keep(*port);
        m_characters.clear();
    }
}

void LabelXMLDelegate::keep(const PendingPort& port)
{
    QString label = text::trimWhiteSpace(port.name);
    if (label.isEmpty())
        label = text::trimWhiteSpace(m_characters);
    if (label.isEmpty() || port.number.value_or(1) < 1)
        return;
    const bool isSource = port.kind == PortKind::source;
    qint64& next = isSource ? m_nextSource : m_nextDestination;
    const qint64 index = port.number ? *port.number - 1 : next;
    (isSource ? m_labels.sources : m_labels.destinations).insert(index, label);
    next = std::max(next, index + 1);
}

} // namespace corvane
