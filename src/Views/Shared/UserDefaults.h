#pragma once

#include "Theme/MatrixZoom.h"

#include <QSettings>

namespace corvane {

/// The operator's preferences, kept from start to start under the application's name.
class UserDefaults {
public:
    UserDefaults() = default;
    /// Kept in `file` instead.
    explicit UserDefaults(const QString& file);

    /// Sets `zoom` as it was kept, and keeps it from then on. `zoom` must not outlive this object.
    void keep(MatrixZoom& zoom);

private:
    QSettings m_settings;
};

} // namespace corvane
