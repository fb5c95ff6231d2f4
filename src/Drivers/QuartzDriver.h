#pragma once

#include "Drivers/InterrogatingDriver.h"

namespace corvane {

/// Controls any router that speaks the Evertz Quartz ASCII protocol. The level of a command is not looked at.
class QuartzDriver final : public InterrogatingDriver {
public:
    explicit QuartzDriver(const RouterConnection& connection, SerialQueue& queue = classQueue());

private:
    /// Shared by all connections of this class; made on first use.
    static SerialQueue& classQueue();
};

} // namespace corvane
