#include "Foundation/Text.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {

namespace {

TEST(Text, TrimsBlanksButNoOtherWhiteSpace)
{
    struct Case {
        std::string_view text;
        std::string_view expected;
    };
    for (const auto& [text, expected] : {Case{"", ""}, Case{" \t ", ""}, Case{"  CAM 1\t", "CAM 1"},
             Case{"\rA\n", "\rA\n"}, Case{"\u00a0A", "\u00a0A"}}) {
        EXPECT_EQ(text::trimBlanks(text), expected);
        EXPECT_EQ(text::trimBlanks(QStringView(text::fromDevice(text))), text::fromDevice(expected));
    }
    EXPECT_EQ(text::trimWhiteSpace(QStringLiteral(" \r\n\u2028Cam 1\u00a0\n")), QStringLiteral("Cam 1"));
}

TEST(Text, ReadsDecimalIntegersOnlyAsWholeTexts)
{
    constexpr auto lowest = std::numeric_limits<qint64>::min();
    constexpr auto highest = std::numeric_limits<qint64>::max();
    struct Case {
        std::string_view text;
        std::optional<qint64> expected;
    };
    for (const auto& [text, expected] :
        {Case{"0", 0}, Case{"007", 7}, Case{"+12", 12}, Case{"-1", -1}, Case{"9223372036854775807", highest},
            Case{"-9223372036854775808", lowest}, Case{"9223372036854775808", {}}, Case{"", {}},
            Case{"+", {}}, Case{"-", {}}, Case{"+-1", {}}, Case{"--1", {}}, Case{" 1", {}}, Case{"1 ", {}},
            Case{"1x", {}}, Case{"0x1", {}}, Case{"1.0", {}}, Case{std::string_view("1\0", 2), {}}})
        EXPECT_EQ(text::decimalInteger(text), expected) << text;
}

TEST(Text, RepairsInvalidUtf8InsteadOfRejectingIt)
{
    EXPECT_EQ(text::fromDevice("Kamera \xe4"), QStringLiteral("Kamera \ufffd"));
    EXPECT_EQ(text::fromDevice("CAM \xf0\x9f\x8e\xa5"), QStringLiteral("CAM 🎥"));
    EXPECT_EQ(text::fromDevice(std::string_view("a\0b", 3)).size(), 3);
}

TEST(Text, CountsWithASingularForExactlyOne)
{
    EXPECT_EQ(text::counted(0, QStringLiteral("panel")), QStringLiteral("0 panels"));
    EXPECT_EQ(text::counted(1, QStringLiteral("panel")), QStringLiteral("1 panel"));
    EXPECT_EQ(text::counted(2, QStringLiteral("panel")), QStringLiteral("2 panels"));
}

} // namespace

} // namespace corvane
