#include "Foundation/JsonReader.h"
#include "Foundation/JsonWriter.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>
#include <limits>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// What `ask` gets from the one element of "[element]"; absent if it throws.
template <typename Answer>
std::optional<Answer> ask(const QByteArray& element, const std::function<Answer(const JsonValue&)>& question)
{
    std::optional<Answer> answer;
    try {
        readJsonArray("[" + element + "]", [&](const JsonValue& value) { answer = question(value); });
    } catch (const JsonError&) {
        return std::nullopt;
    }
    return answer;
}

QString errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const JsonError& error) {
        return QString::fromStdString(error.what());
    }
    return {};
}

QStringList members(const QByteArray& text)
{
    QStringList names;
    readJsonObject(text, [&](const QString& name, const JsonValue& value) {
        names.append(name + u'=' + QString::number(value.integer()));
    });
    return names;
}

TEST(JsonReader, HandsOutTheMembersOfAnObjectInTheTextsOrder)
{
    EXPECT_EQ(members(R"({"b":1,"a":2,"b":3})"), (QStringList{u"b=1"_s, u"a=2"_s, u"b=3"_s}));
    EXPECT_EQ(members(" {} "), QStringList());
}

TEST(JsonReader, ReadsAWholeNumberHoweverItIsWrittenAndNothingElseAsInteger)
{
    struct Case {
        const char* text;
        std::optional<qint64> expected;
    };
    const Case cases[] = {{"0", 0}, {"-7", -7}, {"5.0", 5}, {"5e2", 500}, {"5.5", std::nullopt},
        {"1e30", std::nullopt}, {"1e999", std::nullopt},
        {"9223372036854775807", std::numeric_limits<qint64>::max()}, {"9223372036854775808", std::nullopt},
        {"-9223372036854775808", std::numeric_limits<qint64>::min()}, {"-9223372036854775809", std::nullopt},
        {"18446744073709551615", std::nullopt}, {"\"5\"", std::nullopt}, {"true", std::nullopt},
        {"null", std::nullopt}, {"[5]", std::nullopt}};
    for (const auto& c : cases)
        EXPECT_EQ(ask<qint64>(c.text, [](const JsonValue& value) { return value.integer(); }), c.expected)
            << c.text;
}

TEST(JsonReader, ReadsAUuidOnlyInItsOneForm)
{
    const auto expected = QUuid::fromString(u"{0d9b7f1c-52e8-4c0b-8e0a-57a1d2e1c3f4}");
    struct Case {
        const char* text;
        bool isUuid;
    };
    const Case cases[] = {
        {"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4", true},
        {"0d9b7f1c-52e8-4C0B-8e0a-57a1d2e1c3f4", true},
        {"{0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4}", false},
        {"0D9B7F1C52E84C0B8E0A57A1D2E1C3F4", false},
        {"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F", false},
        {"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4 ", false},
        {"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3G4", false},
        {"0D9B7F1C-52E8-4C0B-8E0A057A1D2E1C3F4", false},
        {"", false},
    };
    for (const auto& c : cases) {
        const auto read =
            ask<QUuid>(QByteArray("\"") + c.text + "\"", [](const JsonValue& value) { return value.uuid(); });
        EXPECT_EQ(read, c.isUuid ? std::optional(expected) : std::nullopt) << c.text;
    }
}

TEST(JsonReader, TakesTheLastOfRepeatedMembersAndNullForAbsent)
{
    readJsonArray(R"([{"a":1,"n":null,"a":2,"gone":3,"gone":null}])", [](const JsonValue& value) {
        EXPECT_EQ(value.member("a").integer(), 2);
        EXPECT_FALSE(value.optionalMember("n"));
        EXPECT_FALSE(value.optionalMember("gone"));
        EXPECT_FALSE(value.optionalMember("missing"));
        EXPECT_TRUE(value.member("n").isNull());
    });
}

TEST(JsonReader, PassesOverWhatNobodyAsksFor)
{
    readJsonArray(R"([{"other":{"a":[1,{"a":2}],"b":{}},"a":[[],3,{}]}])", [](const JsonValue& value) {
        const auto list = value.member("a");
        EXPECT_EQ(list.elementCount(), 3U);
        QStringList names;
        value.forEachMember([&](const QString& name, const JsonValue&) { names.append(name); });
        EXPECT_EQ(names, (QStringList{u"other"_s, u"a"_s}));
    });
}

TEST(JsonReader, TellsWhichMemberIsWrong)
{
    const auto complaint = [](const std::function<void(const JsonValue&)>& question) {
        return errorOf([&] { readJsonArray(R"([{"name":5}])", question); });
    };
    EXPECT_EQ(complaint([](const JsonValue& value) { std::ignore = value.member("name").string(); }),
        u"“name” is not a string"_s);
    EXPECT_EQ(
        complaint([](const JsonValue& value) { std::ignore = value.member("id"); }), u"“id” is missing"_s);
    EXPECT_EQ(complaint([](const JsonValue& value) { std::ignore = value.integer(); }),
        u"an element is not a whole number of 64 bits"_s);
}

TEST(JsonReader, RefusesWhatIsNotJsonFromTheFirstByteToTheLast)
{
    using namespace std::string_literals;
    const std::string texts[] = {""s, " "s, "{"s, "{}}"s, "{} x"s, "{}\0"s, "{}\0garbage"s, "[]"s, "5"s,
        "null"s, "\"a\""s, "{\"a\":1,}"s, "{\"a\"}"s, "{a:1}"s, "{'a':1}"s, "{\"a\":01}"s, "{\"a\":+1}"s,
        "{\"a\":.5}"s, "{\"a\":NaN}"s, "{\"a\":tru}"s, "{\"a\":1e999}"s, "{\"a\":\"\xff\"}"s,
        "{\"\xc0\xaf\":1}"s, "{\"a\":\"\xed\xa0\x80\"}"s, "{\"a\":\"\\ud800\"}"s, "{\"a\":\"\\x\"}"s,
        "{\"a\":\"\n\"}"s, "{\"a\":\"\0\"}"s, "{\"a\":1 /* no */}"s, "{\"a\":[1}]"s};
    for (const auto& text : texts) {
        const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
        EXPECT_THROW(readJsonObject(bytes, [](const QString&, const JsonValue&) {}), JsonError) << text;
    }
}

TEST(JsonReader, SurvivesNestingOfAnyDepth)
{
    const QByteArray open(200'000, '[');
    const QByteArray close(200'000, ']');
    EXPECT_THROW(readJsonArray(open, [](const JsonValue&) {}), JsonError);
    std::size_t elements = 0;
    readJsonArray(open + close, [&](const JsonValue& value) { elements = value.elementCount(); });
    EXPECT_EQ(elements, 1U);
}

QByteArray written(const std::function<void(JsonWriter&)>& write)
{
    QByteArray text;
    JsonWriter writer([&](QByteArrayView piece) { text += piece; });
    write(writer);
    writer.flush();
    return text;
}

TEST(JsonWriter, WritesNumbersSoThatTheyAreReadBackTheSame)
{
    struct Case {
        double number;
        const char* expected;
    };
    const Case cases[] = {{5.0, "5"}, {784900000.5, "784900000.5"}, {700000000.0, "700000000"}, {-3.0, "-3"},
        {0.1, "0.1"}, {784900000.12345678, "784900000.1234568"}, {1e300, "1e+300"}};
    for (const auto& c : cases) {
        const auto text = written([&](JsonWriter& writer) { writer.number(c.number); });
        EXPECT_EQ(text, c.expected);
        EXPECT_EQ(ask<double>(text, [](const JsonValue& value) { return value.number(); }), c.number);
    }
}

TEST(JsonWriter, WritesAnyTextSoThatItIsReadBackTheSame)
{
    const QString texts[] = {u""_s, u"Cam 1"_s, u"\"quoted\" \\ / back"_s, u"\n\t\r\b\f\u0001\u001f\u007f"_s,
        u"ÄÖ東京 🎥"_s, u"a\0b"_s};
    for (const auto& text : texts) {
        const auto json = written([&](JsonWriter& writer) { writer.string(text); });
        EXPECT_EQ(ask<QString>(json, [](const JsonValue& value) { return value.string(); }), text);
    }
}

TEST(JsonWriter, PutsCommasBetweenValuesAndNowhereElse)
{
    const auto text = written([](JsonWriter& writer) {
        writer.beginObject();
        writer.key("list");
        writer.beginArray();
        writer.integer(1);
        writer.beginArray();
        writer.endArray();
        writer.beginObject();
        writer.endObject();
        writer.endArray();
        writer.escapedKey(u"a \"b\""_s);
        writer.string(u"x"_s);
        writer.endObject();
    });
    EXPECT_EQ(text, R"({"list":[1,[],{}],"a \"b\"":"x"})");
}

TEST(JsonWriter, HandsOutALongTextInPieces)
{
    qsizetype largest = 0;
    qsizetype total = 0;
    JsonWriter writer([&](QByteArrayView piece) {
        largest = std::max(largest, piece.size());
        total += piece.size();
    });
    writer.beginArray();
    for (int i = 0; i < 1'000'000; ++i) {
        writer.beginArray();
        writer.endArray();
    }
    writer.endArray();
    writer.flush();
    EXPECT_EQ(total, 3'000'001);
    EXPECT_LT(largest, 1'100'000);
}

} // namespace

} // namespace corvane
