#include "Drivers/Quartz/QuartzDriver.h"

#include "Drivers/Quartz/QuartzParser.h"

namespace corvane {

QuartzDriver::QuartzDriver(const RouterConnection& connection, SerialQueue& queue)
    : InterrogatingDriver(std::type_identity<QuartzParser>{}, connection, queue)
{
}

} // namespace corvane
