#pragma once

#include "emulator/EmulatedMatrix.h"
#include "emulator/VideohubBlockReader.h"
#include "emulator/VideohubWriter.h"

#include <QList>

#include <optional>
#include <variant>

namespace corvane::emulator {

using VideohubCommand = std::variant<QList<Crosspoint>, QList<LabelChange>, QList<LockChange>>;

/// What a block with a body asks to be changed; absent if any of it is not to be done: unreadable lines,
/// ports that don't exist, what another client has locked.
std::optional<VideohubCommand> readCommand(
    const VideohubBlock& block, const EmulatedMatrix& matrix, const VideohubQuirks& quirks, ClientId sender);

void carryOut(const VideohubCommand& command, EmulatedMatrix& matrix);

} // namespace corvane::emulator
