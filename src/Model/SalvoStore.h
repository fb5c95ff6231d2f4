#pragma once

#include "Model/JsonStore.h"
#include "Model/RouterModels.h"

#include <functional>

namespace corvane {

/// The saved routing snapshots of every router in the operator's order. Kept in "salvos.json".
class SalvoStore final : public JsonStore {
public:
    /// Loads what `folder` holds, which need not exist yet.
    explicit SalvoStore(const QString& folder);

    /// By `idText` of the router. A router without salvos has no entry.
    [[nodiscard]] const QHash<QString, QList<Salvo>>& byConnection() const { return m_byConnection; }

    /// Appends, unless the same panel (or the whole router) has a salvo of exactly this name: that one then
    /// takes the new routes and date and keeps its place and id, so read the list again to see the result.
    void add(const Salvo& salvo, const QUuid& connectionID);

    /// `add` for each, and one save. Nothing to add saves nothing.
    void addAll(const QList<Salvo>& salvos, const QUuid& connectionID);

    /// Replaces a salvo's snapshot. An unknown id changes nothing and saves nothing.
    void update(
        const QUuid& salvoID, const QList<Route>& routes, Timestamp savedAt, const QUuid& connectionID);

    /// Takes any name as it is; the rules for names are the caller's. An unknown id changes nothing and saves
    /// nothing.
    void rename(const QUuid& salvoID, const QString& name, const QUuid& connectionID);

    /// Saves in every case.
    void remove(const QUuid& salvoID, const QUuid& connectionID);

    /// Removes every salvo of one panel. Saves in every case.
    void removeAll(const QUuid& panelID, const QUuid& connectionID);

    /// Forgets all salvos of a router.
    void removeConnection(const QUuid& connectionID);

private:
    void change(const QUuid& salvoID, const QUuid& connectionID, const std::function<void(Salvo&)>& edit);
    void removeWhere(const QUuid& connectionID, const std::function<bool(const Salvo&)>& isGone);
    void write(JsonWriter& writer) override;

    QHash<QString, QList<Salvo>> m_byConnection;
};

} // namespace corvane
