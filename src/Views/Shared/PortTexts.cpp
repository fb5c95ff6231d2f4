#include "Views/Shared/PortTexts.h"

namespace corvane::portTexts {

using namespace Qt::StringLiterals;

QString noName()
{
    return u"—"_s;
}

const Port* portAt(const QList<Port>& ports, std::optional<qint64> position)
{
    return position && *position >= 0 && *position < ports.size() ? &ports.at(*position) : nullptr;
}

std::optional<QString> labelAt(const QList<Port>& ports, std::optional<qint64> position)
{
    const Port* const port = portAt(ports, position);
    return port ? std::optional(port->label) : std::nullopt;
}

QString spokenName(const Port& port)
{
    if (!port.label.trimmed().isEmpty())
        return port.label;
    return (port.kind == PortKind::source ? u"Source %1"_s : u"Destination %1"_s).arg(port.index + 1);
}

std::optional<QString> signal(const RouterState& state, qint64 source)
{
    const auto status = state.inputStatus.constFind(source);
    if (status == state.inputStatus.cend())
        return std::nullopt;
    if (!status->present)
        return u"No signal"_s;
    return status->format.value_or(u"Signal present"_s);
}

} // namespace corvane::portTexts
