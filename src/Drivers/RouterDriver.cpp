#include "Drivers/RouterDriver.h"

namespace corvane {

QCoro::Task<> RouterDriver::takeAll(QList<Route> routes)
{
    for (const auto& route : routes)
        co_await take(route.source, route.destination, route.level);
}

} // namespace corvane
