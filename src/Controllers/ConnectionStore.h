#pragma once

#include "Controllers/MatrixController.h"
#include "Foundation/JsonFile.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"

#include <QMap>
#include <QSet>

#include <memory>
#include <stop_token>

namespace corvane {

/// The root of all that is saved and connected: the saved routers and which one is selected, the stores, and
/// one controller for each router. The routers are kept in "connections.json"; the selection is not kept.
///
/// Every change of the list is on the disk when the call returns; one that can't be written stays in memory,
/// and `saveProblem` and a line on standard output say why. Signals are emitted once the whole operation is
/// done. Main thread only; asserted.
class ConnectionStore : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString saveProblem READ saveProblem NOTIFY saveProblemChanged FINAL)

public:
    enum class Persist { yes, no };

    /// Loads everything that `folder` holds. Without a list of routers there are the samples, which are
    /// written with the first save. The first router is selected; nothing is connected. `mainQueue` must
    /// outlive the store.
    ConnectionStore(SerialQueue& mainQueue, DriverMaker makeDriver, const QString& folder);

    /// In the operator's order.
    [[nodiscard]] const QList<RouterConnection>& connections() const { return m_connections; }
    /// Does not save.
    void setConnections(const QList<RouterConnection>& connections);

    [[nodiscard]] std::optional<QUuid> selectedConnectionID() const { return m_selectedConnectionID; }
    void setSelectedConnectionID(std::optional<QUuid> id);
    /// Absent also when the selected id is not in the list.
    [[nodiscard]] std::optional<RouterConnection> selectedConnection() const;

    /// The router's controller, made at the first call. It stays, connected or not, until its router is
    /// edited or removed; from then on the reference is valid only until the main queue's next turn.
    MatrixController& controller(const RouterConnection& connection);

    /// Appends a router and selects it. One that does not persist exists for this run only and is never
    /// written.
    void add(const RouterConnection& connection, Persist persist);

    /// Replaces the router of the same id in its place. Its controller is disconnected and replaced. Labels,
    /// panels and salvos stay, because they belong to the id. An unknown id changes nothing.
    void update(const RouterConnection& connection);

    /// Removes a router with its labels, panels and salvos, and disconnects it.
    void remove(const RouterConnection& connection);

    void save() const;

    /// Connects every router that is not a simulator, all at once, and moves the selection to the first in
    /// the list that comes up within 15 seconds, unless the operator selects something before. Only the first
    /// call does anything.
    void autoConnectOnLaunch();

    [[nodiscard]] LabelStore& labels() { return m_labels; }
    [[nodiscard]] SalvoStore& salvoStore() { return m_salvoStore; }
    [[nodiscard]] PanelStore& panelStore() { return m_panelStore; }

    /// "Not saved: {file} ({reason})" with every file of the stores that could not be written, or empty. A
    /// file leaves the text with its next successful save; until then further failures change nothing.
    [[nodiscard]] QString saveProblem() const;
    /// Empties `saveProblem` until another file fails, or one fails again after a successful save.
    void dismissSaveProblem();

signals:
    void connectionsChanged();
    void selectedConnectionIDChanged();
    /// The router was edited: its old controller is about to be deleted, and `controller` returns the new
    /// one.
    void controllerReplaced(const QUuid& id);
    void saveProblemChanged();

private:
    [[nodiscard]] QList<RouterConnection> loadConnections() const;
    [[nodiscard]] std::optional<RouterConnection> connection(const QUuid& id) const;
    [[nodiscard]] std::optional<QUuid> firstID() const;
    bool dropController(const QUuid& id);
    void noteSave(const QString& fileName, const std::optional<QString>& error);
    void startAutoSelect(const QList<QUuid>& routers);
    [[nodiscard]] bool isAutoSelectOver(std::optional<QUuid> launchSelection, const QList<QUuid>& routers);

    SerialQueue& m_mainQueue;
    const DriverMaker m_makeDriver;
    LabelStore m_labels;
    SalvoStore m_salvoStore;
    PanelStore m_panelStore;
    QSet<QUuid> m_ephemeralIDs;
    std::stop_source m_autoSelect{std::nostopstate};
    bool m_didRunLaunchConnect = false;
    JsonFile m_file;
    /// The reason by file.
    QMap<QString, QString> m_saveProblems;
    bool m_isSaveProblemDismissed = false;
    QList<RouterConnection> m_connections;
    std::optional<QUuid> m_selectedConnectionID;
    QHash<QUuid, std::shared_ptr<MatrixController>> m_controllers;
};

} // namespace corvane
