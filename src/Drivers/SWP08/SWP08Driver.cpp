#include "Drivers/SWP08/SWP08Driver.h"

#include "Drivers/SWP08/SWP08Parser.h"

namespace corvane {

SWP08Driver::SWP08Driver(const RouterConnection& connection, SerialQueue& queue)
    : InterrogatingDriver(std::type_identity<SWP08Parser>{}, connection, queue)
{
}

} // namespace corvane
