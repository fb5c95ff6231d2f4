#include "Model/PanelStore.h"

#include "Model/RouterModelsJson.h"

#include <algorithm>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

void normalise(QList<qint64>& indices)
{
    std::ranges::sort(indices);
    indices.erase(std::ranges::unique(indices).begin(), indices.end());
}

QHash<QString, QList<SubPanel>> panelsFromJson(const JsonValue& json)
{
    QHash<QString, QList<SubPanel>> panels;
    json.forEachMember([&](const QString& connection, const JsonValue& list) {
        QList<SubPanel> read;
        list.forEachElement([&](const JsonValue& panel) { read.append(subPanelFromJson(panel)); });
        panels.insert(connection, read);
    });
    return panels;
}

QHash<QString, QUuid> activeFromJson(const JsonValue& json)
{
    QHash<QString, QUuid> active;
    json.forEachMember(
        [&](const QString& connection, const JsonValue& id) { active.insert(connection, id.uuid()); });
    return active;
}

void writeJson(JsonWriter& writer, const QList<SubPanel>& panels)
{
    writer.beginArray();
    for (const auto& panel : panels)
        corvane::writeJson(writer, panel);
    writer.endArray();
}

void writeJson(JsonWriter& writer, const QHash<QString, QUuid>& active)
{
    writer.beginObject();
    for (auto entry = active.cbegin(); entry != active.cend(); ++entry) {
        writer.escapedKey(entry.key());
        writer.string(idText(entry.value()));
    }
    writer.endObject();
}

} // namespace

PanelStore::PanelStore(const QString& folder)
    : JsonStore(folder + u"/panels.json"_s, u"PanelStore"_s, JsonFile::MovedAside::staysShort)
{
    load([this](const QByteArray& bytes) { m_content = decode(bytes); });
}

QList<SubPanel> PanelStore::panels(const QUuid& connectionID) const
{
    auto panels = m_content.panels.value(idText(connectionID));
    for (auto& panel : panels) {
        normalise(panel.sourceIndices);
        normalise(panel.destinationIndices);
    }
    return panels;
}

void PanelStore::upsert(const SubPanel& panel, const QUuid& connectionID)
{
    const auto key = idText(connectionID);
    auto& panels = m_content.panels[key];
    const auto same = std::ranges::find(panels, panel.id, &SubPanel::id);
    if (same == panels.end())
        panels.append(panel);
    else
        *same = panel;
    saveRouter(key);
}

void PanelStore::remove(const QUuid& panelID, const QUuid& connectionID)
{
    const auto key = idText(connectionID);
    if (const auto panels = m_content.panels.find(key); panels != m_content.panels.end()) {
        panels->removeIf([&](const SubPanel& panel) { return panel.id == panelID; });
        if (panels->isEmpty())
            m_content.panels.erase(panels);
    }
    if (activePanelID(connectionID) == panelID)
        m_content.active.remove(key);
    saveRouter(key);
}

void PanelStore::reorder(const QUuid& connectionID, const std::function<void(QList<SubPanel>&)>& rearrange)
{
    const auto key = idText(connectionID);
    if (const auto panels = m_content.panels.find(key); panels != m_content.panels.end())
        rearrange(*panels);
    saveRouter(key);
}

std::optional<QUuid> PanelStore::activePanelID(const QUuid& connectionID) const
{
    const auto found = m_content.active.constFind(idText(connectionID));
    return found == m_content.active.constEnd() ? std::nullopt : std::optional(*found);
}

void PanelStore::setActivePanelID(const std::optional<QUuid>& panelID, const QUuid& connectionID)
{
    if (panelID)
        m_content.active.insert(idText(connectionID), *panelID);
    else
        m_content.active.remove(idText(connectionID));
    save();
}

void PanelStore::removeConnection(const QUuid& connectionID)
{
    const auto key = idText(connectionID);
    m_content.panels.remove(key);
    m_content.active.remove(key);
    saveRouter(key);
}

PanelStore::Content PanelStore::decode(const QByteArray& bytes)
{
    std::optional<QHash<QString, QList<SubPanel>>> panels;
    std::optional<QHash<QString, QUuid>> active;
    readJsonObject(bytes, [&](const QString& name, const JsonValue& json) {
        if (name == u"panels")
            panels = panelsFromJson(json);
        else if (name == u"active")
            active = activeFromJson(json);
    });
    if (!panels || !active)
        throw JsonError(u"“%1” is missing"_s.arg(panels ? u"active" : u"panels"));
    return {*panels, *active};
}

void PanelStore::write(JsonWriter& writer)
{
    writer.beginObject();
    writer.key("panels");
    writeRouters(writer, m_content.panels,
        [](JsonWriter& member, const QList<SubPanel>& panels) { writeJson(member, panels); });
    writer.key("active");
    writeJson(writer, m_content.active);
    writer.endObject();
}

} // namespace corvane
