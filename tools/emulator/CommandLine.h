#pragma once

#include "emulator/Faces.h"
#include "emulator/Faults.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>
#include <variant>

namespace corvane::emulator {

/// What `corvane-emulator` was asked to be.
struct CommandLine {
    QString protocol;
    MakeFace makeFace;
    quint16 port = 0;
    int sources = 16;
    int destinations = 16;
    int levels = 1;
    /// How many destinations, from the first, are locked by somebody else, and how many show nothing.
    int locked = 0;
    int unrouted = 0;
    /// Ports bear signs in their names that the protocols use themselves.
    bool oddNames = false;
    Faults faults;
    /// How often somebody else takes something, if at all.
    std::optional<std::chrono::milliseconds> changeEvery;
    std::optional<std::chrono::seconds> lifetime;
    bool untilStdinCloses = false;
};

struct UsageError {
    QString message;
};

/// Ends the process itself after `--help`.
std::variant<CommandLine, UsageError> readCommandLine(const QStringList& arguments);

} // namespace corvane::emulator
