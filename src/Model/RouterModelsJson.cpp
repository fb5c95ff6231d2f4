#include "Model/RouterModelsJson.h"

#include "Model/Naming.h"

namespace corvane {

namespace {

void writeMember(JsonWriter& writer, std::string_view name, const QString& text)
{
    writer.key(name);
    writer.string(text);
}

void writeMember(JsonWriter& writer, std::string_view name, qint64 number)
{
    writer.key(name);
    writer.integer(number);
}

void writeMember(JsonWriter& writer, std::string_view name, double number)
{
    writer.key(name);
    writer.number(number);
}

void writeMember(JsonWriter& writer, std::string_view name, const QList<qint64>& numbers)
{
    writer.key(name);
    writer.beginArray();
    for (const auto number : numbers)
        writer.integer(number);
    writer.endArray();
}

template <typename Value>
void writeMember(JsonWriter& writer, std::string_view name, const std::optional<Value>& value)
{
    if (value)
        writeMember(writer, name, *value);
}

void writeJson(JsonWriter& writer, const Route& route)
{
    writer.beginObject();
    writeMember(writer, "level", route.level);
    writeMember(writer, "destination", route.destination);
    writeMember(writer, "source", route.source);
    writer.endObject();
}

std::optional<QString> optionalString(const JsonValue& json, std::string_view name)
{
    const auto value = json.optionalMember(name);
    return value ? std::optional(value->string()) : std::nullopt;
}

qint64 integerOr(qint64 fallback, const JsonValue& json, std::string_view name)
{
    const auto value = json.optionalMember(name);
    return value ? value->integer() : fallback;
}

std::optional<double> optionalNumber(const JsonValue& json, std::string_view name)
{
    const auto value = json.optionalMember(name);
    return value ? std::optional(value->number()) : std::nullopt;
}

std::optional<QUuid> optionalUuid(const JsonValue& json, std::string_view name)
{
    const auto value = json.optionalMember(name);
    return value ? std::optional(value->uuid()) : std::nullopt;
}

RouterVendor vendorFromJson(const JsonValue& json)
{
    const auto rawValue = optionalString(json, "vendor").value_or(QString());
    return routerVendorFromRawValue(rawValue).value_or(RouterVendor::blackmagicVideohub);
}

QList<qint64> integers(const JsonValue& json)
{
    QList<qint64> numbers;
    numbers.reserve(static_cast<qsizetype>(json.elementCount()));
    json.forEachElement([&](const JsonValue& element) { numbers.append(element.integer()); });
    return numbers;
}

Route routeFromJson(const JsonValue& json)
{
    return {json.member("level").integer(), json.member("destination").integer(),
        json.member("source").integer()};
}

} // namespace

void writeJson(JsonWriter& writer, const RouterConnection& connection)
{
    writer.beginObject();
    writeMember(writer, "id", idText(connection.id));
    writeMember(writer, "name", connection.name);
    writeMember(writer, "vendor", rawValue(connection.vendor));
    writeMember(writer, "host", connection.host);
    writeMember(writer, "port", connection.port);
    writeMember(writer, "simSourceCount", connection.simSourceCount);
    writeMember(writer, "simDestinationCount", connection.simDestinationCount);
    writeMember(writer, "accentHue", connection.accentHue);
    writeMember(writer, "bonjourName", connection.bonjourName);
    writeMember(writer, "bonjourType", connection.bonjourType);
    writeMember(writer, "bonjourDomain", connection.bonjourDomain);
    writer.endObject();
}

RouterConnection routerConnectionFromJson(const JsonValue& json)
{
    RouterConnection connection;
    connection.id = optionalUuid(json, "id").value_or(connection.id);
    connection.name = naming::kept(optionalString(json, "name").value_or(connection.name));
    connection.vendor = vendorFromJson(json);
    connection.host = optionalString(json, "host").value_or(connection.host);
    connection.port = integerOr(defaultPort(connection.vendor), json, "port");
    connection.simSourceCount = integerOr(connection.simSourceCount, json, "simSourceCount");
    connection.simDestinationCount = integerOr(connection.simDestinationCount, json, "simDestinationCount");
    connection.accentHue = optionalNumber(json, "accentHue");
    connection.bonjourName = optionalString(json, "bonjourName");
    connection.bonjourType = optionalString(json, "bonjourType");
    connection.bonjourDomain = optionalString(json, "bonjourDomain");
    return connection;
}

void writeJson(JsonWriter& writer, const SubPanel& panel)
{
    writer.beginObject();
    writeMember(writer, "id", idText(panel.id));
    writeMember(writer, "name", panel.name);
    writeMember(writer, "sourceIndices", panel.sourceIndices);
    writeMember(writer, "destinationIndices", panel.destinationIndices);
    writer.endObject();
}

SubPanel subPanelFromJson(const JsonValue& json)
{
    return {json.member("id").uuid(), naming::kept(json.member("name").string()),
        integers(json.member("sourceIndices")), integers(json.member("destinationIndices"))};
}

void writeJson(JsonWriter& writer, const Salvo& salvo)
{
    writer.beginObject();
    writeMember(writer, "id", idText(salvo.id));
    writeMember(writer, "name", salvo.name);
    writer.key("routes");
    writer.beginArray();
    for (const auto& route : salvo.routes)
        writeJson(writer, route);
    writer.endArray();
    if (salvo.savedAt)
        writeMember(writer, "savedAt", salvo.savedAt->seconds);
    if (salvo.panelID)
        writeMember(writer, "panelID", idText(*salvo.panelID));
    writer.endObject();
}

Salvo salvoFromJson(const JsonValue& json)
{
    Salvo salvo;
    salvo.id = json.member("id").uuid();
    salvo.name = naming::kept(json.member("name").string());
    const auto routes = json.member("routes");
    salvo.routes.reserve(static_cast<qsizetype>(routes.elementCount()));
    routes.forEachElement([&](const JsonValue& route) { salvo.routes.append(routeFromJson(route)); });
    if (const auto savedAt = optionalNumber(json, "savedAt"))
        salvo.savedAt = Timestamp{*savedAt};
    salvo.panelID = optionalUuid(json, "panelID");
    return salvo;
}

} // namespace corvane
