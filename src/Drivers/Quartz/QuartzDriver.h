#pragma once

#include "Drivers/Interrogating/InterrogatingDriver.h"

namespace corvane {

/// Controls any router that speaks the Evertz Quartz ASCII protocol. The level of a command is not looked at.
class QuartzDriver final : public InterrogatingDriver {
public:
    QuartzDriver(const RouterConnection& connection, SerialQueue& queue);
};

} // namespace corvane
