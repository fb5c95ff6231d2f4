#pragma once

#include <QtGlobal>

#include <optional>

namespace corvane::emulator {

/// What any device may do wrong, whichever protocol it speaks. May be changed at any moment;
/// what is already on its way to a client keeps the cut it was sent with.
struct Faults {
    /// How many of the coming commands are refused. Questions are answered and don't count.
    int refuseNext = 0;

    /// Whether the command at hand is one of them; counts it off.
    bool takeRefusal()
    {
        if (refuseNext <= 0)
            return false;
        --refuseNext;
        return true;
    }

    /// Commands are acknowledged and then not carried out.
    bool acknowledgeOnly = false;

    /// Accepts connections and reads what comes, but says nothing, not even a greeting.
    bool silent = false;

    /// Output goes out in pieces of this many bytes, each one written on a turn of the event loop
    /// of its own; 0 leaves it whole.
    int pieceSize = 0;

    /// What is said waits for `EmulatorServer::release()`, and what follows it waits with it.
    bool hold = false;

    /// The connection is closed when this many bytes have gone out on it.
    std::optional<qint64> closeAfterBytes = std::nullopt;
};

} // namespace corvane::emulator
