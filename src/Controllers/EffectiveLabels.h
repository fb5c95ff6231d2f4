#pragma once

#include "Model/RouterModels.h"

#include <QHash>

namespace corvane {

/// The operator's own names of one kind of port, by the port's index in decimal, as they are stored.
using CustomLabels = QHash<QString, QString>;
/// A device's own names of one kind of port, by the port's index.
using DeviceNames = QHash<qint64, QString>;

/// A device's own names.
struct DeviceLabels {
    DeviceNames sources;
    DeviceNames destinations;
};

/// The names as the device sent them, cut to `naming::longest`. If an index occurs twice, the last name
/// counts.
DeviceLabels deviceLabels(const RouterState& state);

/// The custom name, else the device's, else the one that the port has.
QString effectiveLabel(const Port& port, const CustomLabels& custom, const DeviceNames& device);

/// Gives every port its effective name; returns whether that changed any.
bool applyLabels(QList<Port>& ports, const CustomLabels& custom, const DeviceNames& device);

/// The same for the port of one index, if there is one. Where ports stand in the order of their indices, the
/// cost does not depend on their number.
bool applyLabel(QList<Port>& ports, qint64 index, const CustomLabels& custom, const DeviceNames& device);

} // namespace corvane
