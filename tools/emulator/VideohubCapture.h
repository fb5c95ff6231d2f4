#pragma once

#include "emulator/EmulatedMatrix.h"

#include <QByteArray>

#include <optional>

namespace corvane::emulator {

/// The matrix that a captured greeting tells of; absent if it doesn't say how large it is. Lenient as a
/// person would be: blanks that a terminal put before the lines and lines that make no sense are passed over.
std::optional<MatrixState> readVideohubCapture(const QByteArray& greeting);

} // namespace corvane::emulator
