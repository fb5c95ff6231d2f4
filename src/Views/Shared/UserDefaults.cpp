#include "Views/Shared/UserDefaults.h"

namespace corvane {

namespace {

constexpr auto cellSizeKey = "matrixCellSize";

} // namespace

UserDefaults::UserDefaults(const QString& file) : m_settings(file, QSettings::IniFormat) { }

void UserDefaults::keep(MatrixZoom& zoom)
{
    const auto key = QLatin1String(cellSizeKey);
    bool isNumber = false;
    const auto kept = m_settings.value(key).toDouble(&isNumber);
    if (isNumber)
        zoom.setCellSize(kept);
    QObject::connect(&zoom, &MatrixZoom::cellSizeChanged, &zoom, [this, key, &zoom] {
        m_settings.setValue(key, zoom.cellSize());
        m_settings.sync();
    });
}

} // namespace corvane
