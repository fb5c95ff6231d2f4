#pragma once

#include "Model/JsonStore.h"
#include "Model/ParsedLabels.h"
#include "Model/RouterModels.h"

namespace corvane {

/// The custom labels of one router. The keys are zero-based port indices as decimal text, as in the file.
struct PortLabels {
    QHash<QString, QString> sources;
    QHash<QString, QString> destinations;
    bool operator==(const PortLabels&) const = default;
    [[nodiscard]] bool isEmpty() const { return sources.isEmpty() && destinations.isEmpty(); }
};

/// One label to set; blank clears the port's label.
struct LabelChange {
    PortRef port;
    QString label;
    bool operator==(const LabelChange&) const = default;
};

/// The operator's own names for ports, which override the device's. Kept in "labels.json".
class LabelStore final : public JsonStore {
public:
    /// Loads what `folder` holds, which need not exist yet.
    explicit LabelStore(const QString& folder);

    /// By `idText` of the router. A router without labels has no entry.
    [[nodiscard]] const QHash<QString, PortLabels>& byConnection() const { return m_byConnection; }

    /// Stores the label as `naming::entered` gives it; what is then empty, or absent, clears it. Saves in
    /// every case.
    void set(const std::optional<QString>& label, PortKind kind, qint64 index, const QUuid& connectionID);

    /// `set` for each, and one save.
    void setAll(const QList<LabelChange>& changes, const QUuid& connectionID);

    /// Adds and overwrites, and never clears: blank labels are passed over. Saves once.
    void merge(const ParsedLabels& batch, const QUuid& connectionID);

    /// Forgets all labels of a router.
    void removeConnection(const QUuid& connectionID);

private:
    /// An empty record is no record.
    void commit(const PortLabels& labels, const QUuid& connectionID);
    void write(JsonWriter& writer) override;

    QHash<QString, PortLabels> m_byConnection;
};

} // namespace corvane
