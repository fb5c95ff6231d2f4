#include "Drivers/Kumo/KumoParser.h"
#include "Drivers/Tcp/Ports.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

constexpr auto least = std::numeric_limits<qint64>::min();
constexpr auto most = std::numeric_limits<qint64>::max();
constexpr std::nullopt_t none = std::nullopt;

TEST(KumoParser, ReadsAValueAsANumberAndAsALabel)
{
    struct Case {
        QByteArray body;
        std::optional<qint64> number;
        std::optional<QString> label;
    };
    const Case cases[] = {
        {R"({"value":"12"})", 12, u"12"_s},
        {R"({"value":12})", 12, u"12"_s},
        {R"({"value":"+12"})", 12, u"+12"_s},
        {R"({"value":"-12"})", -12, u"-12"_s},
        {R"({"value":12.9})", 12, none},
        {R"({"value":-12.9})", -12, none},
        {R"({"value":12.0})", 12, none},
        {R"({"value":9223372036854775807})", most, u"9223372036854775807"_s},
        {R"({"value":-9223372036854775808})", least, u"-9223372036854775808"_s},
        {R"({"value":9223372036854775808})", none, none},
        {R"({"value":1e30})", none, none},
        {R"({"value":" 4"})", none, u" 4"_s},
        {R"({"value":"4.0"})", none, u"4.0"_s},
        {R"({"value":"<b>\"A\" & \u00e9</b>"})", none, u"<b>\"A\" & é</b>"_s},
        {R"({"value":"カメラ 🎥"})", none, u"カメラ 🎥"_s},
        {"{\"value\":\"Caf\xE9\"}", none, u"Caf\uFFFD"_s},
        {R"({"value":""})", none, none},
        {R"({"value":null})", none, none},
        {R"({"value":true})", none, none},
        {R"({"value":["4"]})", none, none},
        {R"({"value":{"value":4}})", none, none},
        {R"({"Value":4,"paramid":"5"})", none, none},
        {R"({"a":{"value":9},"value":"4","value_name":"In 4"})", 4, u"4"_s},
        {" \r\n{ \"value\" : 4 }\n", 4, u"4"_s},
        {R"([{"value":4}])", none, none},
        {"4", none, none},
        {"{\"x\":" + QByteArray(100'000, '[') + QByteArray(100'000, ']') + ",\"value\":4}", 4, u"4"_s},
    };
    for (const auto& c : cases) {
        const auto value = KumoParser::parameterValue(c.body).value_or(KumoParser::Other{});
        EXPECT_EQ(KumoParser::integer(value), c.number) << c.body.left(60).toStdString();
        EXPECT_EQ(KumoParser::label(value), c.label) << c.body.left(60).toStdString();
    }
}

TEST(KumoParser, RefusesWhatIsNotJson)
{
    const QByteArray whole = R"({"paramid":"5","value":"CAM \"1\" \u00e9","more":[1,2.5e3,{"x":true}]})";
    QByteArrayList bodies{"<html><body>404 Not Found</body></html>", R"(<pre>{"value":4}</pre>)",
        R"({"value":4} trailing)", R"({value:4})", R"({"value":04})", R"({"value":1e999})",
        R"({"value":"\ud800"})", whole + '\0', QByteArray(100'000, '['), QByteArray(100'000, '\0')};
    for (qsizetype length = 0; length < whole.size(); ++length)
        bodies.append(whole.left(length));
    for (const auto& body : std::as_const(bodies)) {
        EXPECT_THROW(static_cast<void>(KumoParser::parameterValue(body)), KumoParser::ReplyError)
            << body.left(60).toStdString();
    }
}

TEST(KumoParser, SurvivesPortsAtTheEndsOfTheNumbers)
{
    EXPECT_EQ(KumoParser::setRoutePath(-1, most),
        u"config?action=set&paramid=eParamID_XPT_Destination9223372036854775807_Status&value=0"_s);
    EXPECT_EQ(zeroBased(least), least);
}

TEST(KumoParser, MakesTheWebsPortOfNone)
{
    EXPECT_EQ(KumoParser::baseURL(u"10.1.2.3"_s, 0), u"http://10.1.2.3:80/"_s);
    EXPECT_EQ(KumoParser::baseURL(u"kumo %2"_s, 8080), u"http://kumo %2:8080/"_s);
}

TEST(KumoParser, EncodesWhateverALabelHolds)
{
    const std::pair<QString, QString> cases[] = {
        {u""_s, u""_s},
        {u"two words"_s, u"two%20words"_s},
        {u"&=+?/#"_s, u"%26%3D%2B%3F%2F%23"_s},
        {u"-._~!$'()*,;:@"_s, u"-._~!$'()*,;:@"_s},
        {u"100% %26 %1"_s, u"100%25%20%2526%20%251"_s},
        {u"\"<>[]\\^`{|}"_s, u"%22%3C%3E%5B%5D%5C%5E%60%7B%7C%7D"_s},
        {u"é🎥\r\n"_s, u"%C3%A9%F0%9F%8E%A5%0D%0A"_s},
    };
    for (const auto& [label, encoded] : cases)
        EXPECT_EQ(KumoParser::setLabelPath(u"p"_s, label), u"config?action=set&paramid=p&value="_s + encoded);
}

} // namespace

} // namespace corvane
