#pragma once

#include "Foundation/SerialQueue.h"

#include <memory>
#include <string_view>
#include <utility>

namespace corvane {

/// What a TCP driver needs of its protocol: all that the device said, and what it means.
///
/// Knows no socket: bytes are handed in, and what is to be sent goes out through a function that the driver
/// gives it. Used, and destroyed, on the driver's queue only; its state therefore needs no lock.
class ProtocolParser {
public:
    ProtocolParser() = default;
    ProtocolParser(const ProtocolParser&) = delete;
    ProtocolParser& operator=(const ProtocolParser&) = delete;
    virtual ~ProtocolParser() = default;

    /// The link is up: sends what opens the conversation. Nothing where the device speaks first.
    virtual void begin() { }

    /// Takes what the network brought, in pieces of any size. Never fails: what can't be understood is passed
    /// over.
    virtual void ingest(std::string_view bytes) = 0;
};

/// Makes a parser that is destroyed on `queue`, whoever lets go of it last: one of its timers may just be
/// firing there.
template <typename Parser, typename... Arguments>
std::shared_ptr<Parser> makeParser(SerialQueue& queue, Arguments&&... arguments)
{
    auto parser = std::make_unique<Parser>(std::forward<Arguments>(arguments)...);
    return {parser.release(), [&queue](Parser* ended) {
                std::shared_ptr<Parser> owner(ended);
                if (!queue.isCurrent())
                    queue.async([owner = std::move(owner)] {});
            }};
}

} // namespace corvane
