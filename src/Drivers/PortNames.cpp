#include "Drivers/PortNames.h"

#include <QStringBuilder>

namespace corvane {

QString numberedLabel(PortKind kind, qint64 index)
{
    const auto stem = kind == PortKind::source ? QLatin1StringView("In ") : QLatin1StringView("Out ");
    return stem % QString::number(index + 1);
}

QList<RouterLevel> onlyVideoLevel()
{
    return {{0, QStringLiteral("Video"), LevelKind::video}};
}

} // namespace corvane
