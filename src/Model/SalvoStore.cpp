#include "Model/SalvoStore.h"

#include "Model/RouterModelsJson.h"

#include <algorithm>

namespace corvane {

namespace {

QHash<QString, QList<Salvo>> decode(const QByteArray& bytes)
{
    QHash<QString, QList<Salvo>> byConnection;
    readJsonObject(bytes, [&](const QString& connection, const JsonValue& list) {
        QList<Salvo> salvos;
        list.forEachElement([&](const JsonValue& salvo) { salvos.append(salvoFromJson(salvo)); });
        byConnection.insert(connection, salvos);
    });
    return byConnection;
}

void lay(const Salvo& salvo, QList<Salvo>& salvos)
{
    const auto namesake = std::ranges::find_if(salvos,
        [&](const Salvo& other) { return other.name == salvo.name && other.panelID == salvo.panelID; });
    if (namesake == salvos.end()) {
        salvos.append(salvo);
        return;
    }
    namesake->routes = salvo.routes;
    namesake->savedAt = salvo.savedAt;
}

} // namespace

SalvoStore::SalvoStore(const QString& folder)
    : m_file(folder + QStringLiteral("/salvos.json"), QStringLiteral("SalvoStore"),
        JsonFile::MovedAside::staysShort)
{
    m_file.load([this](const QByteArray& bytes) { m_byConnection = decode(bytes); });
}

void SalvoStore::add(const Salvo& salvo, const QUuid& connectionID)
{
    addAll({salvo}, connectionID);
}

void SalvoStore::addAll(const QList<Salvo>& salvos, const QUuid& connectionID)
{
    if (salvos.isEmpty())
        return;
    auto& list = m_byConnection[idText(connectionID)];
    for (const auto& salvo : salvos)
        lay(salvo, list);
    save();
}

void SalvoStore::update(
    const QUuid& salvoID, const QList<Route>& routes, Timestamp savedAt, const QUuid& connectionID)
{
    change(salvoID, connectionID, [&](Salvo& salvo) {
        salvo.routes = routes;
        salvo.savedAt = savedAt;
    });
}

void SalvoStore::rename(const QUuid& salvoID, const QString& name, const QUuid& connectionID)
{
    change(salvoID, connectionID, [&](Salvo& salvo) { salvo.name = name; });
}

void SalvoStore::remove(const QUuid& salvoID, const QUuid& connectionID)
{
    removeWhere(connectionID, [&](const Salvo& salvo) { return salvo.id == salvoID; });
}

void SalvoStore::removeAll(const QUuid& panelID, const QUuid& connectionID)
{
    removeWhere(connectionID, [&](const Salvo& salvo) { return salvo.panelID == panelID; });
}

void SalvoStore::removeConnection(const QUuid& connectionID)
{
    m_byConnection.remove(idText(connectionID));
    save();
}

void SalvoStore::change(
    const QUuid& salvoID, const QUuid& connectionID, const std::function<void(Salvo&)>& edit)
{
    const auto salvos = m_byConnection.find(idText(connectionID));
    if (salvos == m_byConnection.end())
        return;
    const auto salvo = std::ranges::find(*salvos, salvoID, &Salvo::id);
    if (salvo == salvos->end())
        return;
    edit(*salvo);
    save();
}

void SalvoStore::removeWhere(const QUuid& connectionID, const std::function<bool(const Salvo&)>& isGone)
{
    if (const auto salvos = m_byConnection.find(idText(connectionID)); salvos != m_byConnection.end()) {
        salvos->removeIf(isGone);
        if (salvos->isEmpty())
            m_byConnection.erase(salvos);
    }
    save();
}

void SalvoStore::save() const
{
    m_file.save([this](JsonWriter& writer) {
        writer.beginObject();
        for (auto entry = m_byConnection.cbegin(); entry != m_byConnection.cend(); ++entry) {
            writer.escapedKey(entry.key());
            writer.beginArray();
            for (const auto& salvo : entry.value())
                writeJson(writer, salvo);
            writer.endArray();
        }
        writer.endObject();
    });
}

} // namespace corvane
