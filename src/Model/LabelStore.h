#pragma once

#include "Foundation/JsonFile.h"
#include "Foundation/JsonMemberCache.h"
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

/// The operator's own names for ports, which override the device's. Kept in "labels.json".
///
/// Every change is on the disk when the call returns; one that can't be written stays in memory, and a line
/// on standard output tells of it. Main thread only.
class LabelStore {
public:
    /// Loads what `folder` holds, which need not exist yet.
    explicit LabelStore(const QString& folder);

    /// By `idText` of the router. A router without labels has no entry.
    [[nodiscard]] const QHash<QString, PortLabels>& byConnection() const { return m_byConnection; }

    /// A label is trimmed; what is then empty, or absent, clears it. Saves in every case.
    void set(const std::optional<QString>& label, PortKind kind, qint64 index, const QUuid& connectionID);

    /// Adds and overwrites, and never clears: blank labels are passed over. Saves once.
    void merge(const ParsedLabels& batch, const QUuid& connectionID);

    /// Forgets all labels of a router.
    void removeConnection(const QUuid& connectionID);

private:
    /// An empty record is no record.
    void commit(const PortLabels& labels, const QUuid& connectionID);
    void save();
    void write(JsonWriter& writer);
    /// So that the first change after the start costs no more than any other.
    void prepareTexts();

    JsonFile m_file;
    QHash<QString, PortLabels> m_byConnection;
    JsonMemberCache m_texts;
};

} // namespace corvane
