#include "Views/PortTexts.h"

namespace corvane::portTexts {

QString noName()
{
    return QStringLiteral("—");
}

std::optional<QString> labelAt(const QList<Port>& ports, std::optional<qint64> position)
{
    if (!position || *position < 0 || *position >= ports.size())
        return std::nullopt;
    return ports.at(*position).label;
}

std::optional<QString> signal(const RouterState& state, qint64 source)
{
    const auto status = state.inputStatus.constFind(source);
    if (status == state.inputStatus.cend())
        return std::nullopt;
    if (!status->present)
        return QStringLiteral("No signal");
    return status->format.value_or(QStringLiteral("Signal present"));
}

} // namespace corvane::portTexts
