#include "Foundation/DataFolder.h"

#include <QDir>
#include <QStandardPaths>

namespace corvane {

QString dataFolder()
{
    const auto place = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const bool isThere = !place.isEmpty() && QDir().mkpath(place);
    return (isThere ? place : QDir::tempPath()) + QStringLiteral("/Corvane");
}

} // namespace corvane
