#pragma once

#include "Drivers/EventText.h"
#include "Drivers/Kumo/KumoDriver.h"
#include "Foundation/Task.h"
#include "emulator/KumoEmulator.h"
#include "support/Pump.h"

namespace corvane {

using emulator::EmulatedMatrix;
using emulator::KumoEmulator;
using emulator::KumoQuirks;

inline const std::string contacting = "status Contacting KUMO at 127.0.0.1…";
inline const std::string reading = "status Reading routing and labels…";
inline const std::string connectedTo3x2 =
    "connected ajaKumo \"Stage\" \"KUMO 3×2\" [Input 1|Input 2|Input 3] [Output 1|Output 2] routes 0=0 1=1";

/// A KUMO of three sources and two destinations, reached over real sockets, and its driver.
class KumoDriverTest : public testing::Test {
protected:
    KumoDriverTest()
    {
        saved.name = u"Stage"_s;
        saved.host = u"127.0.0.1"_s;
        saved.port = device.port();
        renew();
    }

    void TearDown() override { finish(); }

    /// Lets everything come to its end that still holds the driver.
    void finish()
    {
        device.faults().hold = false;
        disconnect();
        device.release();
        EXPECT_TRUE(pump([this] { return driver.use_count() == 1; }));
    }

    void renew()
    {
        if (driver)
            finish();
        outcomes.clear();
        driver = std::make_shared<KumoDriver>(saved, queue);
        log.emplace(driver->events(), queue);
    }

    void start(std::function<QCoro::Task<>(KumoDriver&)> command)
    {
        startTask(queue, [this, held = driver, command = std::move(command)]() -> QCoro::Task<> {
            try {
                co_await command(*held);
                outcomes.emplace_back("done");
            } catch (const std::exception& error) {
                outcomes.emplace_back(error.what());
            }
        });
    }

    void take(qint64 source, qint64 destination)
    {
        start([=](KumoDriver& router) { return router.take(source, destination, 0); });
    }

    void rename(const QString& label)
    {
        start([=](KumoDriver& router) { return router.setLabel(label, 2, PortKind::source); });
    }

    void disconnect()
    {
        start([](KumoDriver& router) { return router.disconnect(); });
    }

    bool pump(const std::function<bool()>& condition) { return pumpUntil(condition, {&queue}); }

    bool pumpUntilOver(std::size_t operations)
    {
        const bool areOver = pump([&] { return outcomes.size() == operations; });
        // What they reported is still on its way to the log.
        queue.runReady();
        return areOver;
    }

    /// Until the device has been asked this often since it was made.
    bool pumpUntilAsked(qsizetype times)
    {
        return pump([&] { return device.receivedMessages().size() == times; });
    }

    void startConnecting()
    {
        start([](KumoDriver& router) { return router.connect(); });
    }

    /// What was reported on the way to an end of the reading, good or bad.
    std::vector<std::string> connecting()
    {
        startConnecting();
        EXPECT_TRUE(pumpUntilOver(1));
        outcomes.clear();
        return log->takeNew();
    }

    void connect() { EXPECT_THAT(connecting(), testing::ElementsAre(contacting, reading, connectedTo3x2)); }

    /// What the driver reports of one look at both destinations.
    std::vector<std::string> look()
    {
        queue.advance(std::chrono::seconds(2));
        // The first request is under way. The second one's deadline and the next pause are still to come.
        const auto waiting = queue.waitingCount();
        EXPECT_TRUE(pump([&] { return queue.waitingCount() == waiting + 2; }));
        queue.runReady();
        return log->takeNew();
    }

    ManualQueue queue;
    EmulatedMatrix matrix{3, 2};
    KumoEmulator device{matrix};
    RouterConnection saved;
    std::shared_ptr<KumoDriver> driver;
    std::optional<EventLog> log;
    /// Of each operation: "done" or what it threw.
    std::vector<std::string> outcomes;
};

} // namespace corvane
