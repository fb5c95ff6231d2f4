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

/// Takes the names as the device sent them. Should it name an index twice, the last name counts.
DeviceLabels deviceLabels(const RouterState& state);

/// The custom name, else the device's, else the one that the port has.
QString effectiveLabel(const Port& port, const CustomLabels& custom, const DeviceNames& device);

/// Gives every port its effective name; whether that changed any.
bool layLabels(QList<Port>& ports, const CustomLabels& custom, const DeviceNames& device);

/// The same for the port of one index, if there is one. Costs next to nothing for ports that stand in the
/// order of their indices, so that a router which tells a thousand names one by one may do so.
bool layLabel(QList<Port>& ports, qint64 index, const CustomLabels& custom, const DeviceNames& device);

} // namespace corvane
