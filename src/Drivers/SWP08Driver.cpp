#include "Drivers/SWP08Driver.h"

#include "Drivers/SWP08Parser.h"
#include "Foundation/EventLoopQueue.h"

namespace corvane {

SerialQueue& SWP08Driver::classQueue()
{
    static ThreadQueue queue(QStringLiteral("swp08.driver"));
    return queue;
}

SWP08Driver::SWP08Driver(const RouterConnection& connection, SerialQueue& queue)
    : InterrogatingDriver(std::type_identity<SWP08Parser>{}, connection, queue)
{
}

} // namespace corvane
