#include "Drivers/Tcp/DelimitedReader.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace corvane {

namespace {

constexpr std::size_t limit = 8;

/// What a reader of lines or blocks makes of a stream that comes in two pieces, and how often it gave up.
struct Reading {
    Reading(std::string_view delimiter, std::string_view stream, std::size_t cut)
    {
        DelimitedReader reader(delimiter, CarriageReturn::dropped, limit);
        for (const auto bytes : {stream.substr(0, cut), stream.substr(cut)})
            givenUp += reader.feed(bytes, [this](std::string_view piece) { pieces.emplace_back(piece); });
    }

    std::vector<std::string> pieces;
    int givenUp = 0;
};

TEST(DelimitedReader, LeavesOutWhatIsTooLongAndGoesOnBehindItsEndHoweverTheStreamIsCut)
{
    struct Case {
        std::string delimiter;
        std::string stream;
        std::vector<std::string> pieces;
        int givenUp;
    };
    const Case cases[] = {
        {"\n", "a\r\nbc\n\nd", {"a", "bc", ""}, 0},
        {"\n", "12345678\nb\n", {"12345678", "b"}, 0},
        {"\n", "a\n123456789\nb\n", {"a", "b"}, 1},
        {"\n", "a\n1234567890123456789012345678901\nb\nc\n", {"a", "b", "c"}, 1},
        {"\n\n", "a\nb\n\n123456789\n1\n\nc\n\n", {"a\nb", "c"}, 1},
        {"\n\n", "123456789\n\n\nb\n\n", {"\nb"}, 1},
        {"\n", "1234567890", {}, 1},
    };
    for (const auto& c : cases) {
        for (std::size_t cut = 0; cut <= c.stream.size(); ++cut) {
            const Reading reading(c.delimiter, c.stream, cut);
            EXPECT_EQ(reading.pieces, c.pieces) << c.stream << " cut at " << cut;
            EXPECT_EQ(reading.givenUp, c.givenUp) << c.stream << " cut at " << cut;
        }
    }
}

TEST(DelimitedReader, TellsOfEachOfTwoThatAreTooLong)
{
    DelimitedReader reader("\n", CarriageReturn::dropped, limit);
    const auto ignore = [](std::string_view) { ADD_FAILURE() << "handed on"; };
    EXPECT_TRUE(reader.feed("123456789", ignore));
    EXPECT_FALSE(reader.feed("123456789", ignore));
    EXPECT_FALSE(reader.feed("\n12345678", ignore));
    EXPECT_TRUE(reader.feed("9", ignore));
}

TEST(DelimitedReader, SearchesEachByteOnce)
{
    // Otherwise this would take hours.
    DelimitedReader reader("\n\n", CarriageReturn::dropped, std::size_t{2} << 20);
    std::size_t size = 0;
    const auto keep = [&](std::string_view piece) { size = piece.size(); };
    for (int byte = 0; byte < 1 << 20; ++byte)
        EXPECT_FALSE(reader.feed("x", keep));
    EXPECT_FALSE(reader.feed("\n\n", keep));
    EXPECT_EQ(size, std::size_t{1} << 20);
}

} // namespace

} // namespace corvane
