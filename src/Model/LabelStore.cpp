#include "Model/LabelStore.h"

#include "Foundation/JsonReader.h"
#include "Foundation/Text.h"

namespace corvane {

namespace {

using Names = QHash<QString, QString>;

Names namesFromJson(const JsonValue& json)
{
    Names names;
    json.forEachMember(
        [&](const QString& index, const JsonValue& label) { names.insert(index, label.string()); });
    return names;
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

void lay(const QHash<qint64, QString>& labels, Names& names)
{
    for (auto label = labels.cbegin(); label != labels.cend(); ++label) {
        if (const auto trimmed = text::trimWhiteSpace(label.value()); !trimmed.isEmpty())
            names.insert(QString::number(label.key()), trimmed);
    }
}

} // namespace

LabelStore::LabelStore(const QString& folder)
    : m_file(folder + QStringLiteral("/labels.json"), QStringLiteral("LabelStore"),
        JsonFile::MovedAside::namesTheCopy)
{
    m_file.load([this](const QByteArray& bytes) { m_byConnection = decode(bytes); });
    prepareTexts();
}

void LabelStore::set(
    const std::optional<QString>& label, PortKind kind, qint64 index, const QUuid& connectionID)
{
    auto labels = m_byConnection.value(idText(connectionID));
    auto& names = kind == PortKind::source ? labels.sources : labels.destinations;
    const auto trimmed = text::trimWhiteSpace(label.value_or(QString()));
    if (trimmed.isEmpty())
        names.remove(QString::number(index));
    else
        names.insert(QString::number(index), trimmed);
    commit(labels, connectionID);
}

void LabelStore::merge(const ParsedLabels& batch, const QUuid& connectionID)
{
    auto labels = m_byConnection.value(idText(connectionID));
    lay(batch.sources, labels.sources);
    lay(batch.destinations, labels.destinations);
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
    m_texts.forget(key);
    save();
}

void LabelStore::save()
{
    m_file.save([this](JsonWriter& writer) { write(writer); });
}

void LabelStore::prepareTexts()
{
    JsonWriter nowhere([](QByteArrayView) {});
    write(nowhere);
}

void LabelStore::write(JsonWriter& writer)
{
    writer.beginObject();
    for (auto entry = m_byConnection.cbegin(); entry != m_byConnection.cend(); ++entry)
        m_texts.write(writer, entry.key(), [&](JsonWriter& member) { writeJson(member, entry.value()); });
    writer.endObject();
}

} // namespace corvane
