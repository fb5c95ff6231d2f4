#include "Drivers/PortNames.h"

namespace corvane {

QString numberedLabel(PortKind kind, qint64 index)
{
    const auto text = kind == PortKind::source ? QStringLiteral("In %1") : QStringLiteral("Out %1");
    return text.arg(index + 1);
}

QList<RouterLevel> onlyVideoLevel()
{
    return {{0, QStringLiteral("Video"), LevelKind::video}};
}

} // namespace corvane
