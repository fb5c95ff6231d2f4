#pragma once

#include "emulator/EmulatedMatrix.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace corvane::emulator {

namespace quartz {

/// V for level 0, then A, B, C and so on up to P.
char levelLetter(int level);

/// What `levelLetter` can name.
inline constexpr int mostLevels = 17;

} // namespace quartz

/// A line like ".SVA12,5". Ports count from 0 here, and from 1 on the wire.
struct QuartzCommand {
    /// S to take, I to ask.
    char verb = 0;
    QList<int> levels;
    int destination = 0;
    /// Only a take has one.
    int source = noSource;
    /// Whether the matrix has the ports.
    bool exists = false;
};

/// Absent if the line is not one of the two, or names levels that the matrix doesn't have, or a port below 1.
std::optional<QuartzCommand> readQuartzCommand(const QByteArray& line, const EmulatedMatrix& matrix);

} // namespace corvane::emulator
