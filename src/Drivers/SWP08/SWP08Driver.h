#pragma once

#include "Drivers/Interrogating/InterrogatingDriver.h"

namespace corvane {

/// Controls any router that speaks Pro-Bel SW-P-08.
class SWP08Driver final : public InterrogatingDriver {
public:
    SWP08Driver(const RouterConnection& connection, SerialQueue& queue);
};

} // namespace corvane
