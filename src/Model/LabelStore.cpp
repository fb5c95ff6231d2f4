#include "Model/LabelStore.h"

#include "Foundation/JsonReader.h"
#include "Model/Naming.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Names = QHash<QString, QString>;

Names namesFromJson(const JsonValue& json)
{
    Names result;
    json.forEachMember([&](const QString& index, const JsonValue& label) {
        result.insert(index, naming::kept(label.string()));
    });
    return result;
}

void writeJson(JsonWriter& writer, const Names& names)
{
    writer.beginObject();
    for (auto name = names.cbegin(); name != names.cend(); ++name) {
        writer.escapedKey(name.key());
        writer.string(name.value());
    }
    writer.endObject();
}

void writeJson(JsonWriter& writer, const PortLabels& labels)
{
    writer.beginObject();
    writer.key("sources");
    writeJson(writer, labels.sources);
    writer.key("destinations");
    writeJson(writer, labels.destinations);
    writer.endObject();
}

QHash<QString, PortLabels> decode(const QByteArray& bytes)
{
    QHash<QString, PortLabels> byConnection;
    readJsonObject(bytes, [&](const QString& connection, const JsonValue& json) {
        byConnection.insert(
            connection, {namesFromJson(json.member("sources")), namesFromJson(json.member("destinations"))});
    });
    return byConnection;
}

void mergeInto(const QHash<qint64, QString>& labels, Names& names)
{
    for (auto label = labels.cbegin(); label != labels.cend(); ++label) {
        if (const auto entered = naming::entered(label.value()); !entered.isEmpty())
            names.insert(QString::number(label.key()), entered);
    }
}

void apply(const LabelChange& change, PortLabels& labels)
{
    auto& names = change.port.kind == PortKind::source ? labels.sources : labels.destinations;
    const auto key = QString::number(change.port.index);
    if (const auto entered = naming::entered(change.label); entered.isEmpty())
        names.remove(key);
    else
        names.insert(key, entered);
}

} // namespace

LabelStore::LabelStore(const QString& folder)
    : JsonStore(folder + u"/labels.json"_s, u"LabelStore"_s, JsonFile::MovedAside::namesTheCopy)
{
    load([this](const QByteArray& bytes) { m_byConnection = decode(bytes); });
}

void LabelStore::set(
    const std::optional<QString>& label, PortKind kind, qint64 index, const QUuid& connectionID)
{
    setAll({{{kind, index}, label.value_or(QString())}}, connectionID);
}

void LabelStore::setAll(const QList<LabelChange>& changes, const QUuid& connectionID)
{
    auto labels = m_byConnection.value(idText(connectionID));
    for (const auto& change : changes)
        apply(change, labels);
    commit(labels, connectionID);
}

void LabelStore::merge(const ParsedLabels& batch, const QUuid& connectionID)
{
    auto labels = m_byConnection.value(idText(connectionID));
    mergeInto(batch.sources, labels.sources);
    mergeInto(batch.destinations, labels.destinations);
    commit(labels, connectionID);
}

void LabelStore::removeConnection(const QUuid& connectionID)
{
    commit({}, connectionID);
}

void LabelStore::commit(const PortLabels& labels, const QUuid& connectionID)
{
    const auto key = idText(connectionID);
    if (labels.isEmpty())
        m_byConnection.remove(key);
    else
        m_byConnection.insert(key, labels);
    saveRouter(key);
}

void LabelStore::write(JsonWriter& writer)
{
    writeRouters(writer, m_byConnection,
        [](JsonWriter& member, const PortLabels& labels) { writeJson(member, labels); });
}

} // namespace corvane
