#pragma once

#include "Drivers/InterrogatingDriver.h"

namespace corvane {

/// Controls any router that speaks Pro-Bel SW-P-08.
class SWP08Driver final : public InterrogatingDriver {
public:
    explicit SWP08Driver(const RouterConnection& connection, SerialQueue& queue = classQueue());

private:
    /// Shared by all connections of this class; made on first use.
    static SerialQueue& classQueue();
};

} // namespace corvane
