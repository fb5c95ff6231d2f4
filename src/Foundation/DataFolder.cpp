#include "Foundation/DataFolder.h"

#include <QDir>
#include <QStandardPaths>

namespace corvane {

using namespace Qt::StringLiterals;

QString dataFolder()
{
    const auto place = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const bool isThere = !place.isEmpty() && QDir().mkpath(place);
    return (isThere ? place : QDir::tempPath()) + u"/Corvane"_s;
}

} // namespace corvane
