#include "Foundation/Text.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;

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
    EXPECT_EQ(text::trimWhiteSpace(u" \r\n\u2028Cam 1\u00a0\n"_s), u"Cam 1"_s);
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
    EXPECT_EQ(text::fromDevice("Kamera \xe4"), u"Kamera \ufffd"_s);
    EXPECT_EQ(text::fromDevice("CAM \xf0\x9f\x8e\xa5"), u"CAM 🎥"_s);
    EXPECT_EQ(text::fromDevice(std::string_view("a\0b", 3)).size(), 3);
}

TEST(Text, KeepsNoMoreOfADevicesTextThanANameHolds)
{
    const std::string threeBytes = "\u20ac";
    const std::string fourBytes = "\U0001f3a5";
    struct Case {
        std::string unit;
        qsizetype size;
    };
    for (const auto& [unit, size] :
        {Case{"x", 1024}, Case{threeBytes, 1024}, Case{fourBytes, 1024}, Case{"x" + fourBytes, 1024}}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += unit;
        const auto kept = text::fromDevice(text);
        EXPECT_EQ(kept.size(), size) << unit;
        EXPECT_FALSE(kept.contains(QChar(0xfffd))) << unit;
        EXPECT_TRUE(QString::fromStdString(text.substr(0, 8192)).startsWith(kept)) << unit;
    }
    // No half of a sign stays.
    std::string odd = "x";
    while (odd.size() < 4096)
        odd += fourBytes;
    EXPECT_EQ(text::fromDevice(odd).size(), 1023);
}

TEST(Text, MakesBlanksOfWhatWouldEndALine)
{
    EXPECT_EQ(text::onOneLine(u"A\r\nB\tC\u0000\u001f\u007f\u0085\u2028\u2029D \u00e4\u200d"_s),
        u"A  B C      D \u00e4\u200d"_s);
}

TEST(Text, CutsAtTheFirstSeparator)
{
    struct Case {
        std::string_view text;
        std::string_view before;
        std::optional<std::string_view> after;
        std::string_view withoutLeading;
    };
    for (const auto& c :
        {Case{"a;b;c", "a", "b;c", "a;b;c"}, Case{";;b", "", ";b", "b"}, Case{"a;", "a", "", "a;"},
            Case{"a", "a", {}, "a"}, Case{"", "", {}, ""}, Case{";", "", "", ""}}) {
        const auto [before, after] = text::cut(c.text, ';');
        EXPECT_EQ(before, c.before) << c.text;
        EXPECT_EQ(after, c.after) << c.text;
        EXPECT_EQ(text::withoutLeading(c.text, ';'), c.withoutLeading) << c.text;
    }
}

TEST(Text, CountsWithASingularForExactlyOne)
{
    EXPECT_EQ(text::counted(0, u"panel"_s), u"0 panels"_s);
    EXPECT_EQ(text::counted(1, u"panel"_s), u"1 panel"_s);
    EXPECT_EQ(text::counted(2, u"panel"_s), u"2 panels"_s);
}

TEST(Text, ShowsAnyNameInOneLine)
{
    const QString longest(200, u'x');
    struct Case {
        QString name;
        QString shown;
    };
    for (const auto& [name, shown] : {Case{u"Evening  \"News\""_s, u"Evening  \"News\""_s},
             Case{u"a\r\nb\tc"_s, u"a  b c"_s}, Case{u"a\u2028b\u2029c\u0085d"_s, u"a b c d"_s},
             Case{u"\u202Egpj\u202C \u2066x\u2069"_s, u"gpj x"_s}, Case{u"אבג"_s, u"אבג"_s},
             Case{longest, longest}, Case{QString(10000, u'x'), longest + u'…'},
             Case{QString(199, u'x') + u"🎥!"_s, QString(199, u'x') + u'…'}})
        EXPECT_EQ(text::oneLine(name), shown) << name.size();
}

} // namespace

} // namespace corvane
