#include "Drivers/DriverFactory.h"

#include "Drivers/KumoDriver.h"
#include "Drivers/LightwareDriver.h"
#include "Drivers/SimulatorDriver.h"
#include "Drivers/VideohubDriver.h"

namespace corvane {

namespace {

/// Stands in for a protocol that is not spoken yet, and says so.
class UnsupportedDriver final : public RouterDriver {
public:
    explicit UnsupportedDriver(RouterVendor vendor) : m_vendor(vendor) { }

    QCoro::Task<> connect() override
    {
        yield(driverEvent::Error{
            QStringLiteral("This version can't talk to %1 routers yet.").arg(displayName(m_vendor))});
        co_return;
    }

    QCoro::Task<> disconnect() override
    {
        events().finish();
        co_return;
    }

    QCoro::Task<> take(qint64, qint64, qint64) override { return notConnected(); }
    QCoro::Task<> takeAll(QList<Route>) override { return notConnected(); }
    QCoro::Task<> setLock(qint64, qint64, bool) override { return notConnected(); }
    QCoro::Task<> setLabel(QString, qint64, PortKind) override { return notConnected(); }

private:
    static QCoro::Task<> notConnected()
    {
        throw DriverError::notConnected();
        co_return;
    }

    const RouterVendor m_vendor;
};

} // namespace

std::shared_ptr<RouterDriver> DriverFactory::makeDriver(
    const RouterConnection& connection, SerialQueue& mainQueue)
{
    switch (connection.vendor) {
    case RouterVendor::simulator:
        return std::make_shared<SimulatorDriver>(connection, mainQueue);
    case RouterVendor::blackmagicVideohub:
        return std::make_shared<VideohubDriver>(connection);
    case RouterVendor::ajaKumo:
        return std::make_shared<KumoDriver>(connection, mainQueue);
    case RouterVendor::lightware:
        return std::make_shared<LightwareDriver>(connection);
    default:
        return std::make_shared<UnsupportedDriver>(connection.vendor);
    }
}

} // namespace corvane
