#pragma once

#include "Drivers/DriverHarness.h"
#include "emulator/QuartzEmulator.h"
#include "emulator/SWP08Emulator.h"

#include <memory>
#include <string>

namespace corvane {

namespace emulator {

inline std::string protocolName(const SWP08Emulator& /*router*/)
{
    return "SW-P-08";
}

inline std::string protocolName(const QuartzEmulator& /*router*/)
{
    return "Quartz";
}

inline std::string vendorName(const SWP08Emulator& /*router*/)
{
    return "rossUltrix";
}

inline std::string vendorName(const QuartzEmulator& /*router*/)
{
    return "evertzQuartz";
}

} // namespace emulator

/// An emulated router that has to be asked for each crosspoint, of 20 sources, 18 destinations and three
/// levels, and a driver on its way to it. The saved size is the router's own unless a test says otherwise.
template <typename Driver, typename Emulator>
class InterrogatingDriverFixture : public testing::Test {
protected:
    using Harness = DriverHarness<Driver>;

    static inline const std::string interrogating = "status Interrogating crosspoints…";

    InterrogatingDriverFixture()
    {
        saved.name = u"Studio"_s;
        saved.host = u"127.0.0.1"_s;
        saved.port = router.port();
        saved.simSourceCount = 20;
        saved.simDestinationCount = 18;
    }

    std::unique_ptr<Harness> connecting()
    {
        auto running = std::make_unique<Harness>(queue, saved);
        EXPECT_FALSE(outcome(running->driver->connect()));
        return running;
    }

    /// On a link over which every question has been asked and every answer has come, none of it told yet.
    std::unique_ptr<Harness> answered()
    {
        auto running = connecting();
        EXPECT_TRUE(running->pump([&] {
            return router.receivedMessages().size() == saved.simDestinationCount && router.hasSaidAll();
        }));
        running->settle();
        EXPECT_THAT(running->log.takeNew(), testing::Contains(interrogating));
        return running;
    }

    /// Leaves out of `receivedMessages` from here on what was asked on connecting.
    std::unique_ptr<Harness> connected()
    {
        auto running = answered();
        running->advance(std::chrono::seconds(1));
        EXPECT_THAT(running->log.takeNew(), testing::ElementsAre(connectedText()));
        return running;
    }

    /// What is reported of a router that shows what the emulated one does.
    std::string connectedText() const
    {
        auto text = "connected " + emulator::vendorName(router) + " \"Studio\" \""
            + emulator::protocolName(router) + " " + std::to_string(saved.simSourceCount) + "×"
            + std::to_string(saved.simDestinationCount) + "\" " + ports("In ", saved.simSourceCount) + " "
            + ports("Out ", saved.simDestinationCount) + " routes";
        for (int i = 0; i < matrix.count(emulator::Side::Destination) && i < saved.simDestinationCount; ++i) {
            const int source = matrix.source(0, i);
            if (source >= 0 && source < saved.simSourceCount)
                text += " " + std::to_string(i) + "=" + std::to_string(source);
        }
        return text;
    }

    std::string beyond() const
    {
        return "refused The device reports ports beyond the configured "
            + std::to_string(saved.simSourceCount) + "×" + std::to_string(saved.simDestinationCount)
            + " — increase the matrix size in this router's settings.";
    }

    /// What the router has heard since it was asked for everything.
    QList<QByteArray> commands() { return router.receivedMessages().mid(saved.simDestinationCount); }

    ManualQueue queue;
    emulator::EmulatedMatrix matrix{20, 18, 3};
    Emulator router{matrix};
    RouterConnection saved;

private:
    static std::string ports(const std::string& stem, qint64 count)
    {
        std::string text;
        for (qint64 number = 1; number <= count; ++number)
            text += (number > 1 ? "|" : "[") + stem + std::to_string(number);
        return text + "]";
    }
};

} // namespace corvane
