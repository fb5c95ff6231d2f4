#include "Drivers/Contract/RouterDriver.h"

namespace corvane {

QCoro::Task<> RouterDriver::takeAll(QList<Route> routes)
{
    for (const auto& route : routes)
        co_await take(route.source, route.destination, route.level);
}

void RouterDriver::tellReadingProgress(std::optional<double> fraction) const
{
    if (m_onReadingProgress)
        m_onReadingProgress(fraction);
}

} // namespace corvane
