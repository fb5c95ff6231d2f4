#pragma once

#include "Drivers/KumoDriver.h"
#include "FakeKumo.h"
#include "Foundation/Task.h"
#include "support/Pump.h"

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

inline const auto sourceCount = u"eParamID_NumberOfSources"_s;
inline const auto destinationCount = u"eParamID_NumberOfDestinations"_s;

inline QString statusOf(int destination)
{
    return u"eParamID_XPT_Destination%1_Status"_s.arg(destination);
}

inline QString nameOf(const QString& port)
{
    return u"eParamID_XPT_%1_Line_1"_s.arg(port);
}

inline QString reading(const QString& parameter)
{
    return u"http://10.1.2.3:80/config?action=get&paramid="_s + parameter;
}

inline QString setting(const QString& parameter, const QString& value)
{
    return u"http://10.1.2.3:80/config?action=set&paramid=%1&value=%2"_s.arg(parameter, value);
}

/// A KUMO of two sources and two destinations, Out 1 on In 2 and Out 2 on nothing, its driver, and what they
/// did.
class KumoDriverTest : public testing::Test {
protected:
    KumoDriverTest()
    {
        connection.name = u"Truck"_s;
        connection.host = u"10.1.2.3"_s;
        connection.port = 0;
        kumo.set(sourceCount, "\"2\"");
        kumo.set(destinationCount, "2");
        kumo.set(nameOf(u"Source1"_s), "\"CAM\"");
        kumo.set(nameOf(u"Source2"_s), "\"VTR\"");
        kumo.set(nameOf(u"Destination1"_s), "\"PGM\"");
        kumo.set(nameOf(u"Destination2"_s), "\"AUX\"");
        kumo.set(statusOf(1), "\"2\"");
        kumo.set(statusOf(2), "\"0\"");
    }

    void TearDown() override
    {
        disconnect();
        while (!kumo.held.empty())
            release();
        pumpUntilIdle({&queue});
    }

    void use(std::shared_ptr<KumoDriver> newDriver)
    {
        driver = std::move(newDriver);
        driver->events().consume(queue, {}, [this](RouterDriverEvent&& event) { reported.push_back(event); });
    }

    void make()
    {
        driver.reset();
        use(std::make_shared<KumoDriver>(connection, queue, std::make_unique<FakeKumoClient>(kumo)));
    }

    void start(std::function<QCoro::Task<>(KumoDriver&)> command)
    {
        startTask(queue, [this, held = driver, command = std::move(command)]() -> QCoro::Task<> {
            try {
                co_await command(*held);
                ++returned;
            } catch (const std::exception& error) {
                thrown.emplace_back(error.what());
            }
        });
        queue.runReady();
    }

    void startConnecting()
    {
        start([](KumoDriver& router) { return router.connect(); });
    }

    void disconnect()
    {
        if (driver)
            start([](KumoDriver& router) { return router.disconnect(); });
    }

    void take(qint64 source, qint64 destination)
    {
        start([=](KumoDriver& router) { return router.take(source, destination, 0); });
    }

    void rename(const QString& label, qint64 index, PortKind kind)
    {
        start([=](KumoDriver& router) { return router.setLabel(label, index, kind); });
    }

    const RouterState& connectedState() { return std::get<driverEvent::Connected>(reported.back()).state; }

    /// From here on only what follows the connection counts.
    void connect()
    {
        make();
        startConnecting();
        ASSERT_TRUE(!reported.empty() && std::holds_alternative<driverEvent::Connected>(reported.back()));
        forget();
    }

    void forget()
    {
        reported.clear();
        kumo.requests.clear();
        returned = 0;
    }

    void release()
    {
        const auto next = kumo.held.front();
        kumo.held.pop_front();
        next.resume();
        queue.runReady();
    }

    ManualQueue queue;
    FakeKumo kumo;
    RouterConnection connection;
    std::shared_ptr<KumoDriver> driver;
    std::vector<RouterDriverEvent> reported;
    std::vector<std::string> thrown;
    int returned = 0;
};

} // namespace corvane
