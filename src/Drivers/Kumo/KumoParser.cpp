#include "Drivers/Kumo/KumoParser.h"

#include "Drivers/Tcp/Ports.h"
#include "Foundation/Text.h"

#include <nlohmann/json.hpp>

#include <QUrl>

#include <cmath>
#include <utility>

namespace corvane::KumoParser {

using namespace Qt::StringLiterals;

namespace {

using Json = nlohmann::json;

ReplyError notJson(std::size_t position)
{
    return ReplyError{"The reply is not JSON, from byte " + std::to_string(position)};
}

Json parsed(const QByteArray& text)
{
    // The library takes a NUL for the end of the text and would let anything follow it.
    if (const auto nul = text.indexOf('\0'); nul >= 0)
        throw notJson(static_cast<std::size_t>(nul) + 1);
    try {
        return Json::parse(text.cbegin(), text.cend());
    } catch (const Json::parse_error& error) {
        throw notJson(error.byte);
    } catch (const Json::exception&) {
        throw ReplyError("The reply holds a number too large to read");
    }
}

Value valueOf(const Json& json)
{
    if (json.is_string())
        return text::fromDevice(json.get_ref<const std::string&>());
    // Whole numbers beyond 64 bits signed are numbers without being integers.
    if (json.is_number_float() || (json.is_number_unsigned() && !std::in_range<qint64>(json.get<quint64>())))
        return json.get<double>();
    if (json.is_number())
        return json.get<qint64>();
    return Other{};
}

std::optional<qint64> cutTowardsZero(double number)
{
    constexpr double beyond = 9223372036854775808.0; // 2 to the power of 63
    if (number < -beyond || number >= beyond)
        return std::nullopt;
    return static_cast<qint64>(number);
}

} // namespace

std::optional<Value> parameterValue(const QByteArray& body)
{
    const auto json = parsed(body.isValidUtf8() ? body : QString::fromUtf8(body).toUtf8());
    const auto member = json.find("value");
    if (!json.is_object() || member == json.end())
        return std::nullopt;
    return valueOf(*member);
}

std::optional<qint64> integer(const Value& value)
{
    if (const auto* const whole = std::get_if<qint64>(&value))
        return *whole;
    if (const auto* const text = std::get_if<QString>(&value))
        return text::decimalInteger(text->toStdString());
    if (const auto* const number = std::get_if<double>(&value))
        return cutTowardsZero(*number);
    return std::nullopt;
}

std::optional<QString> label(const Value& value)
{
    if (const auto* const text = std::get_if<QString>(&value); text && !text->isEmpty())
        return *text;
    if (const auto* const whole = std::get_if<qint64>(&value))
        return QString::number(*whole);
    return std::nullopt;
}

QString sourceCountParameter()
{
    return u"eParamID_NumberOfSources"_s;
}

QString destinationCountParameter()
{
    return u"eParamID_NumberOfDestinations"_s;
}

QString labelParameter(PortKind kind, qint64 index)
{
    const auto port = kind == PortKind::source ? u"Source"_s : u"Destination"_s;
    return u"eParamID_XPT_%1%2_Line_1"_s.arg(port, QString::number(oneBased(index)));
}

QString statusParameter(qint64 destination)
{
    return u"eParamID_XPT_Destination%1_Status"_s.arg(oneBased(destination));
}

QString baseURL(const QString& host, qint64 port)
{
    constexpr qint64 webPort = 80;
    return u"http://%1:%2/"_s.arg(host, QString::number(port == 0 ? webPort : port));
}

QString readPath(const QString& parameter)
{
    return u"config?action=get&paramid="_s + parameter;
}

QString setRoutePath(qint64 source, qint64 destination)
{
    return u"config?action=set&paramid=%1&value=%2"_s.arg(
        statusParameter(destination), QString::number(oneBased(source)));
}

QString setLabelPath(const QString& parameter, const QString& label)
{
    // What a URL's query may hold as it is, without what has a meaning there to the device.
    static constexpr auto* keptAsTheyAre = "!$'()*,;:@";
    const auto encoded = QString::fromLatin1(QUrl::toPercentEncoding(label, keptAsTheyAre));
    return u"config?action=set&paramid=%1&value=%2"_s.arg(parameter, encoded);
}

} // namespace corvane::KumoParser
