#include "Drivers/Tcp/Ports.h"

#include <QStringBuilder>

#include <limits>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

qint64 oneBased(qint64 index)
{
    return index == std::numeric_limits<qint64>::max() ? index : index + 1;
}

qint64 zeroBased(qint64 number)
{
    return number == std::numeric_limits<qint64>::min() ? number : number - 1;
}

QString numberedLabel(PortKind kind, qint64 index)
{
    const auto stem = kind == PortKind::source ? QLatin1StringView("In ") : QLatin1StringView("Out ");
    return stem % QString::number(index + 1);
}

QList<Port> portList(PortKind kind, qint64 count, PortTable<QString> labels)
{
    QList<Port> ports;
    ports.reserve(count);
    for (qint64 index = 0; index < count; ++index) {
        auto* const label = labels.find(index);
        ports.append({index, kind, label ? std::move(*label) : numberedLabel(kind, index)});
    }
    return ports;
}

QList<RouterLevel> onlyVideoLevel()
{
    return {{0, u"Video"_s, LevelKind::video}};
}

} // namespace corvane
