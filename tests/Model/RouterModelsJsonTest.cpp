#include "Model/RouterModelsJson.h"

#include <gtest/gtest.h>

#include <functional>

namespace corvane {

namespace {

constexpr auto idText1 = "0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4";
constexpr auto idText2 = "51C6C6F2-8A3D-4B52-B1AF-0C3A7D0E9E11";

template <typename Record>
using Decode = Record (*)(const JsonValue&);

/// The record of "[text]"; absent if it can't be read.
template <typename Record>
std::optional<Record> decoded(const QByteArray& text, Decode<Record> decode)
{
    std::optional<Record> record;
    try {
        readJsonArray("[" + text + "]", [&](const JsonValue& json) { record = decode(json); });
    } catch (const JsonError&) {
        return std::nullopt;
    }
    return record;
}

template <typename Record>
QByteArray encoded(const Record& record)
{
    QByteArray text;
    JsonWriter writer([&](QByteArrayView piece) { text += piece; });
    writeJson(writer, record);
    writer.flush();
    return text;
}

QByteArray withIds(QByteArray text)
{
    return text.replace("#1", idText1).replace("#2", idText2);
}

TEST(RouterConnectionJson, WritesItsMembersInOrderAndOnlyThoseThatArePresent)
{
    const QByteArray texts[] = {
        R"({"id":"#1","name":"Main","vendor":"lightware","host":"10.0.0.1","port":6107,"simSourceCount":16,)"
        R"("simDestinationCount":24})",
        R"({"id":"#1","name":"\"Ä\"","vendor":"blackmagicVideohub","host":"","port":-1,"simSourceCount":0,)"
        R"("simDestinationCount":2,"accentHue":0.35,"bonjourName":"Hub","bonjourType":"_blackmagic._tcp",)"
        R"("bonjourDomain":"local."})",
        R"({"id":"#1","name":"","vendor":"ajaKumo","host":"h","port":9223372036854775807,"simSourceCount":1,)"
        R"("simDestinationCount":1,"accentHue":1})",
    };
    for (const auto& text : texts) {
        const auto record = decoded(withIds(text), routerConnectionFromJson);
        ASSERT_TRUE(record) << text.constData();
        EXPECT_EQ(encoded(*record), withIds(text));
    }
}

TEST(RouterConnectionJson, FillsInWhateverIsMissing)
{
    RouterConnection videohub;
    RouterConnection lightware;
    lightware.vendor = RouterVendor::lightware;
    lightware.port = 6107;
    RouterConnection simulator;
    simulator.vendor = RouterVendor::simulator;
    simulator.port = 0;
    struct Case {
        const char* text;
        RouterConnection expected;
    };
    const Case cases[] = {
        {R"({})", videohub},
        {R"({"vendor":"ofTomorrow"})", videohub},
        {R"({"vendor":""})", videohub},
        {R"({"vendor":"lightware"})", lightware},
        {R"({"vendor":"simulator","unknown":{"a":[1]}})", simulator},
        {R"({"id":null,"name":null,"vendor":null,"host":null,"port":null})", videohub},
        {R"({"simSourceCount":null,"accentHue":null,"bonjourName":null,"port":9990})", videohub},
    };
    for (const auto& c : cases) {
        auto record = decoded<RouterConnection>(c.text, routerConnectionFromJson);
        ASSERT_TRUE(record) << c.text;
        EXPECT_FALSE(record->id.isNull());
        record->id = c.expected.id;
        EXPECT_EQ(*record, c.expected) << c.text;
    }
}

TEST(RouterConnectionJson, GivesEachRecordWithoutAnIdAFreshOne)
{
    EXPECT_NE(decoded("{}", routerConnectionFromJson)->id, decoded("{}", routerConnectionFromJson)->id);
}

TEST(RouterConnectionJson, RefusesAWrongType)
{
    const char* const texts[] = {"[]", "5", "null", R"({"id":"x"})", R"({"id":5})", R"({"name":5})",
        R"({"vendor":5})", R"({"host":[]})", R"({"port":"9990"})", R"({"port":9990.5})", R"({"port":1e30})",
        R"({"simSourceCount":true})", R"({"simDestinationCount":{}})", R"({"accentHue":"0.5"})",
        R"({"bonjourName":1})", R"({"bonjourType":1})", R"({"bonjourDomain":1})"};
    for (const auto* const text : texts)
        EXPECT_FALSE(decoded<RouterConnection>(text, routerConnectionFromJson)) << text;
}

/// Each record must be refused as soon as any of its required members is missing or of another type.
template <typename Record>
void expectAllRequired(const QByteArray& complete, Decode<Record> decode, const QByteArrayList& members)
{
    ASSERT_TRUE(decoded(complete, decode));
    for (const auto& member : members) {
        auto renamed = complete;
        renamed.replace("\"" + member + "\":", "\"other\":");
        EXPECT_FALSE(decoded(renamed, decode)) << "without " << member.constData();
        auto retyped = complete;
        retyped.replace("\"" + member + "\":", "\"" + member + "\":null,\"other\":");
        EXPECT_FALSE(decoded(retyped, decode)) << "null for " << member.constData();
    }
}

TEST(SubPanelJson, KeepsItsIndicesAsTheyAreAndNeedsAllMembers)
{
    const auto text =
        withIds(R"({"id":"#1","name":"Studio A","sourceIndices":[3,1,3],"destinationIndices":[]})");
    EXPECT_EQ(encoded(*decoded(text, subPanelFromJson)), text);
    expectAllRequired(text, subPanelFromJson, {"id", "name", "sourceIndices", "destinationIndices"});
    EXPECT_FALSE(decoded(QByteArray(text).replace("3,1", "3,\"1\""), subPanelFromJson));
}

TEST(SalvoJson, WritesBackWhatItReadAndNeedsAllMembersButTheOptionalOnes)
{
    const QByteArray texts[] = {
        R"({"id":"#1","name":"Morning","routes":[{"level":0,"destination":3,"source":1}],"savedAt":784900000.5})",
        R"({"id":"#1","name":"","routes":[],"savedAt":784900000,"panelID":"#2"})",
        R"({"id":"#1","name":"n","routes":[{"level":2,"destination":3,"source":1},{"level":0,"destination":0,"source":9}]})",
    };
    for (const auto& text : texts)
        EXPECT_EQ(encoded(*decoded(withIds(text), salvoFromJson)), withIds(text));
    expectAllRequired(
        withIds(texts[0]), salvoFromJson, {"id", "name", "routes", "level", "destination", "source"});
}

TEST(SalvoJson, TakesNullForAbsentAndRefusesWrongTypes)
{
    const auto with = [](const char* member) {
        return decoded(withIds(R"({"id":"#1","name":"n","routes":[],)") + member + "}", salvoFromJson);
    };
    EXPECT_EQ(with(R"("savedAt":null,"panelID":null)")->savedAt, std::nullopt);
    EXPECT_FALSE(with(R"("savedAt":"now")"));
    EXPECT_FALSE(with(R"("panelID":"x")"));
    EXPECT_FALSE(with(R"("panelID":7)"));
}

} // namespace

} // namespace corvane
