#pragma once

#include "Drivers/RouterDriver.h"

#include <functional>
#include <memory>

namespace corvane {

/// Makes the driver that speaks a saved router's protocol. Nothing touches the network until `connect`.
using DriverMaker = std::function<std::shared_ptr<RouterDriver>(const RouterConnection&)>;

namespace DriverFactory {

/// `mainQueue` must outlive the driver.
std::shared_ptr<RouterDriver> makeDriver(const RouterConnection& connection, SerialQueue& mainQueue);

} // namespace DriverFactory

} // namespace corvane
