#pragma once

#include "Drivers/Contract/RouterDriver.h"
#include "Drivers/Tcp/ProtocolParser.h"

#include <functional>
#include <memory>
#include <span>

namespace corvane::fuzz {

using Bytes = std::span<const unsigned char>;

/// Makes the parser under test on this queue, speaking into this stream.
using ParserMaker = std::function<std::shared_ptr<ProtocolParser>(SerialQueue&, const RouterEventStream&)>;

/// Plays one conversation: the first byte tells how large the pieces are in which the rest arrives (0: all at
/// once), the second how long the device pauses after each, in tens of milliseconds. A controller acts on
/// what the parser says. Aborts if that leaves a picture that no router can have.
void playConversation(Bytes input, const ParserMaker& makeParser);

} // namespace corvane::fuzz
