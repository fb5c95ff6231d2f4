#include "Drivers/QuartzDriver.h"

#include "Drivers/QuartzParser.h"
#include "Foundation/EventLoopQueue.h"

namespace corvane {

SerialQueue& QuartzDriver::classQueue()
{
    static ThreadQueue queue(QStringLiteral("quartz.driver"));
    return queue;
}

QuartzDriver::QuartzDriver(const RouterConnection& connection, SerialQueue& queue)
    : InterrogatingDriver(std::type_identity<QuartzParser>{}, connection, queue)
{
}

} // namespace corvane
