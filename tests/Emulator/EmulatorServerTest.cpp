#include "RawClient.h"

#include "emulator/VideohubEmulator.h"

using namespace corvane;
using namespace corvane::emulator;
using namespace Qt::StringLiterals;

namespace {

constexpr auto noSuchBlock = "COFFEE:\n\n";
constexpr auto refusal = "NAK\n\n";
constexpr auto greetingEnd = "END PRELUDE:\n\n";
constexpr auto take = "VIDEO OUTPUT ROUTING:\n0 2\n\n";

/// What every face does wrong in the same way, shown by one that speaks first.
class EmulatorServerTest : public testing::Test {
protected:
    EmulatedMatrix matrix{3, 2};
    VideohubEmulator router{matrix};
};

TEST_F(EmulatorServerTest, CutsHoldsRefusesAndNeglectsAsTold)
{
    router.faults() = {.refuseNext = 1, .pieceSize = 1};
    RawClient one(router);
    one.skipTo(greetingEnd);
    EXPECT_GT(one.deliveries(), 100);
    one.send("VIDEO OUTPUT LOCKS:\n\n" + QByteArray(take));
    EXPECT_HEARS(one, "ACK\n\nVIDEO OUTPUT LOCKS:\n0 U\n1 U\n\nNAK\n\n");
    router.faults() = {.acknowledgeOnly = true};
    expectAnswer(one, take, "ACK\n\n");
    EXPECT_EQ(matrix.source(0, 0), 0);
    RawClient other(router);
    other.skipTo(greetingEnd);

    router.faults() = {.hold = true};
    one.send(noSuchBlock);
    pumpUntilIdle();
    expectAnswer(other, noSuchBlock, "");
    EXPECT_FALSE(router.hasSaidAll());
    router.releaseOldest();
    EXPECT_HEARS(one, refusal);
    pumpUntilIdle();
    EXPECT_EQ(other.received(), "");
    expectAnswer(one, noSuchBlock, "");
    router.release();
    EXPECT_HEARS(one, refusal);
    EXPECT_HEARS(other, refusal);
    EXPECT_TRUE(router.hasSaidAll());
    router.faults() = {.silent = true};
    expectAnswer(one, take, "");
    EXPECT_EQ(router.receivedMessages().size(), 7);
}

TEST_F(EmulatorServerTest, LosesItsClientsWhereToldToAndListensAgain)
{
    RawClient first(router);
    first.skipTo(greetingEnd);
    router.dropClients(EmulatorServer::Drop::InMidMessage);
    ASSERT_TRUE(pumpUntil([&] { return first.isClosed(); }));
    EXPECT_EQ(first.received(), "VIDEO OUTPUT ROUTING:\n0 1");
    EXPECT_EQ(router.clientCount(), 0);

    router.faults() = {.pieceSize = 10, .closeAfterBytes = 25};
    RawClient second(router);
    ASSERT_TRUE(pumpUntil([&] { return second.isClosed(); }));
    EXPECT_EQ(second.received(), "PROTOCOL PREAMBLE:\nVersio");

    router.faults() = {};
    router.stopListening();
    RawClient early(router);
    EXPECT_TRUE(pumpUntil([&] { return early.isRefused(); }));
    ASSERT_TRUE(router.listenAgain());
    RawClient late(router);
    late.skipTo(greetingEnd);
}

TEST(EmulatedMatrix, ChangesAllThatIsAskedForOrNothing)
{
    EmulatedMatrix matrix(2, 2, 2);
    EXPECT_FALSE(matrix.setRoutes({{0, 0, 1}, {2, 0, 1}}));
    EXPECT_FALSE(matrix.setLabels({{Side::Source, 0, u"A"_s}, {Side::Source, -1, u"B"_s}}));
    EXPECT_FALSE(matrix.setLocks({{0, somebodyElse}, {2, somebodyElse}}));
    EXPECT_EQ(matrix.source(0, 0), 0);
    EXPECT_EQ(matrix.label(Side::Source, 0), u"Input 1"_s);
    EXPECT_EQ(matrix.lockOwner(0), std::nullopt);

    EXPECT_TRUE(matrix.setRoutes({{1, 0, noSource}}));
    EXPECT_EQ(matrix.source(0, 0), 0);
    EXPECT_EQ(matrix.source(1, 0), noSource);
}

} // namespace
