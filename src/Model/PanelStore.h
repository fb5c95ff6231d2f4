#pragma once

#include "Model/JsonStore.h"
#include "Model/RouterModels.h"

#include <functional>

namespace corvane {

/// The panels of every router in the operator's order, and which of them is active. Kept in "panels.json".
class PanelStore final : public JsonStore {
public:
    /// Loads what `folder` holds, which need not exist yet.
    explicit PanelStore(const QString& folder);

    /// In the operator's order, each with its indices sorted and without repeats, however they are stored.
    [[nodiscard]] QList<SubPanel> panels(const QUuid& connectionID) const;

    /// Replaces the panel of the same id in its place, or appends.
    void upsert(const SubPanel& panel, const QUuid& connectionID);

    /// Removes a panel, and forgets that it was active. Saves in every case.
    void remove(const QUuid& panelID, const QUuid& connectionID);

    /// Rearranges a router's list as stored; a router without panels is left without. Saves in every case.
    void reorder(const QUuid& connectionID, const std::function<void(QList<SubPanel>&)>& rearrange);

    /// Absent: the whole router. No such panel need exist.
    [[nodiscard]] std::optional<QUuid> activePanelID(const QUuid& connectionID) const;
    void setActivePanelID(const std::optional<QUuid>& panelID, const QUuid& connectionID);

    /// Forgets all panels of a router.
    void removeConnection(const QUuid& connectionID);

private:
    /// Both by `idText` of the router.
    struct Content {
        QHash<QString, QList<SubPanel>> panels;
        QHash<QString, QUuid> active;
    };

    static Content decode(const QByteArray& bytes);
    void write(JsonWriter& writer) override;

    Content m_content;
};

} // namespace corvane
