#pragma once

#include "emulator/EmulatedMatrix.h"

#include <QString>

#include <optional>

namespace corvane::emulator {

/// What a parameter's id stands for.
struct KumoParameter {
    enum class Kind { Count, Label, Route };
    Kind kind = Kind::Count;
    Side side = Side::Source;
    /// From 0, and there is such a port; of no meaning for a count.
    int index = 0;

    bool isNumber() const { return kind != Kind::Label; }
};

/// Absent if this matrix has no such parameter.
std::optional<KumoParameter> readKumoParameter(const QString& id, const EmulatedMatrix& matrix);

/// What the parameter is at present: numbers count from 1, and 0 is no source.
QString kumoValue(const KumoParameter& parameter, const EmulatedMatrix& matrix);

/// False, and nothing is done, if the parameter can't become that.
bool setKumoValue(const KumoParameter& parameter, const QString& value, EmulatedMatrix& matrix);

} // namespace corvane::emulator
