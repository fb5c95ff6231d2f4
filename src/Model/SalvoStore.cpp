#include "Model/SalvoStore.h"

#include "Model/RouterModelsJson.h"

#include <algorithm>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

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

void addOrReplace(const Salvo& salvo, QList<Salvo>& salvos)
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
    : JsonStore(folder + u"/salvos.json"_s, u"SalvoStore"_s, JsonFile::MovedAside::staysShort)
{
    load([this](const QByteArray& bytes) { m_byConnection = decode(bytes); });
}

void SalvoStore::add(const Salvo& salvo, const QUuid& connectionID)
{
    addAll({salvo}, connectionID);
}

void SalvoStore::addAll(const QList<Salvo>& salvos, const QUuid& connectionID)
{
    if (salvos.isEmpty())
        return;
    const auto key = idText(connectionID);
    auto& list = m_byConnection[key];
    for (const auto& salvo : salvos)
        addOrReplace(salvo, list);
    saveRouter(key);
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
    const auto key = idText(connectionID);
    m_byConnection.remove(key);
    saveRouter(key);
}

void SalvoStore::change(
    const QUuid& salvoID, const QUuid& connectionID, const std::function<void(Salvo&)>& edit)
{
    const auto key = idText(connectionID);
    const auto salvos = m_byConnection.find(key);
    if (salvos == m_byConnection.end())
        return;
    const auto salvo = std::ranges::find(*salvos, salvoID, &Salvo::id);
    if (salvo == salvos->end())
        return;
    edit(*salvo);
    saveRouter(key);
}

void SalvoStore::removeWhere(const QUuid& connectionID, const std::function<bool(const Salvo&)>& isGone)
{
    const auto key = idText(connectionID);
    if (const auto salvos = m_byConnection.find(key); salvos != m_byConnection.end()) {
        salvos->removeIf(isGone);
        if (salvos->isEmpty())
            m_byConnection.erase(salvos);
    }
    saveRouter(key);
}

void SalvoStore::write(JsonWriter& writer)
{
    writeRouters(writer, m_byConnection, [](JsonWriter& member, const QList<Salvo>& salvos) {
        member.beginArray();
        for (const auto& salvo : salvos)
            writeJson(member, salvo);
        member.endArray();
    });
}

} // namespace corvane
