#pragma once

#include "Foundation/TcpConnection.h"

namespace corvane {

/// Finds the host and port of a Bonjour service through the system's `dns_sd.h`. To be called on a thread
/// with a Qt event loop. Dropping the returned handle on that thread ends the search.
std::shared_ptr<void> resolveBonjourService(
    const ServiceEndpoint& service, std::function<void(ServiceResolution)> done);

} // namespace corvane
