#pragma once

#include <QHash>
#include <QString>

namespace corvane {

/// A batch of port labels as an import found them, by zero-based port index.
struct ParsedLabels {
    QHash<qint64, QString> sources;
    QHash<qint64, QString> destinations;
    bool operator==(const ParsedLabels&) const = default;
};

} // namespace corvane
