#pragma once

#include "Controllers/EffectiveLabels.h"
#include "Controllers/PanelPorts.h"
#include "Controllers/RoutingRules.h"
#include "Controllers/SalvoDiff.h"
#include "Drivers/DriverFactory.h"
#include "Foundation/SerialQueue.h"
#include "Model/RouterModels.h"

#include <QObject>

#include <functional>
#include <memory>
#include <stop_token>

namespace corvane {

class LabelStore;
class PanelStore;
class SalvoStore;
struct PortLabels;

/// The one object behind everything an operator sees of one saved router: the last known picture of the
/// device, what is selected and staged, and every action.
///
/// Operations never throw: what goes wrong is told in `lastError`. Routes and locks show at once and are
/// rolled back only if the command could not be sent; what the device really did arrives later as its events
/// and always wins. The object outlives a connection: after a drop `state` keeps the last known matrix until
/// the next connection replaces it.
///
/// Confined to the main thread. A write that stores an equal value notifies nobody, and observers hear of an
/// operation when all of it is done, never of half. Indices are zero-based port indices and level indices;
/// any value is safe. Signals carry no values beyond what changed: read them back.
///
/// Always made by `std::make_shared`: a task that is sending a command holds the controller until it has
/// finished.
class MatrixController : public QObject, public std::enable_shared_from_this<MatrixController> {
    Q_OBJECT

public:
    /// What all controllers share; everything must outlive them.
    struct Environment {
        SerialQueue& mainQueue;
        DriverMaker makeDriver;
        LabelStore& labelStore;
        SalvoStore& salvoStore;
        PanelStore& panelStore;
    };

    using PendingTake = corvane::PendingTake;

    /// Reads this router's panels, salvos and active panel from the stores. Does not connect.
    MatrixController(RouterConnection connection, const Environment& environment);
    ~MatrixController() override;

    [[nodiscard]] QUuid id() const { return m_connection.id; }
    [[nodiscard]] const RouterConnection& connection() const { return m_connection; }
    [[nodiscard]] const RouterState& state() const { return m_state; }
    [[nodiscard]] const ConnectionStatus& status() const { return m_now.status; }
    [[nodiscard]] bool isConnected() const { return std::holds_alternative<Connected>(m_now.status); }
    [[nodiscard]] const QString& statusMessage() const { return m_now.statusMessage; }
    /// How far the reading of the device has come while connecting, 0 to 1; absent where nobody knows.
    [[nodiscard]] std::optional<double> readingProgress() const { return m_now.readingProgress; }

    /// The error banner's text. One slot: the latest wins.
    [[nodiscard]] const std::optional<QString>& lastError() const { return m_now.lastError; }
    void setLastError(std::optional<QString> message);

    /// Starts afresh in any status: the old driver is told to disconnect, and whatever it still says is
    /// dropped.
    void connect();
    void disconnect();

    /// The level's name, or "L{index + 1}" when the router has no such level.
    [[nodiscard]] QString levelName(qint64 level) const;

    [[nodiscard]] RouteViewMode viewMode() const { return m_now.viewMode; }
    void setViewMode(RouteViewMode mode);

    [[nodiscard]] TakeMode takeMode() const { return m_now.takeMode; }
    /// A real change drops what is staged.
    void setTakeMode(TakeMode mode);

    /// The level that is shown, and that locks are sent on.
    [[nodiscard]] qint64 primaryLevel() const { return m_now.primaryLevel; }
    void setPrimaryLevel(qint64 level);

    /// The levels that a take is limited to; empty means that all levels follow.
    [[nodiscard]] const QSet<qint64>& breakawayLevels() const { return m_now.breakawayLevels; }
    void setBreakawayLevels(const QSet<qint64>& levels);

    [[nodiscard]] RoutingDirection routingDirection() const { return m_now.routingDirection; }
    /// In every case drops the gang, multi-select and what is staged.
    void setDirection(RoutingDirection direction);

    [[nodiscard]] std::optional<qint64> pendingDestination() const { return m_now.staging.destination; }
    [[nodiscard]] std::optional<qint64> pendingSource() const { return m_now.staging.source; }
    [[nodiscard]] const QSet<qint64>& pendingDestinations() const { return m_now.staging.destinations; }
    void setPendingDestination(std::optional<qint64> destination);
    void setPendingSource(std::optional<qint64> source);
    void setPendingDestinations(const QSet<qint64>& destinations);

    [[nodiscard]] std::optional<qint64> selectedDestination() const { return m_now.selection.destination; }
    /// The gang. Toggling never leaves exactly one destination in it.
    [[nodiscard]] const QSet<qint64>& selectedDestinations() const { return m_now.selection.destinations; }
    [[nodiscard]] std::optional<qint64> selectedSource() const { return m_now.selection.source; }
    [[nodiscard]] bool multiSelectMode() const { return m_now.multiSelectMode; }
    void setMultiSelectMode(bool isOn);

    /// The levels that a take switches, in the router's order.
    [[nodiscard]] QList<qint64> activeLevels() const;
    /// The destinations that a source click aims at, ascending.
    [[nodiscard]] QList<qint64> xyTargets() const;
    /// Whether a source click aims at this destination, among others perhaps.
    [[nodiscard]] bool isXYTarget(qint64 destination) const;
    [[nodiscard]] std::optional<PendingTake> pendingTake() const;
    /// True also while only half a route is staged.
    [[nodiscard]] bool hasStaging() const;
    [[nodiscard]] bool allGanged() const;
    [[nodiscard]] bool allDestinationsStaged() const;

    void clearPending();
    /// Routes one source to one destination on the active levels, unless the destination is locked.
    void take(qint64 source, qint64 destination);
    /// Takes what is staged, if it is complete.
    void confirmTake();
    /// A click on a destination's header in the grid: aims in confirm mode, does nothing in immediate mode.
    void selectDestination(qint64 destination);
    void focusDestination(qint64 destination);
    void toggleDestinationInGang(qint64 destination);
    void selectAllInGang();
    void deselectAllInGang();
    void chooseSource(qint64 source);
    void focusSource(qint64 source);
    void assignDestination(qint64 destination);
    /// Moves to confirm mode, whatever the mode was.
    void selectAllDestinations();
    void toggleLock(qint64 destination);

    /// Lays the custom labels over the device's own. For those who changed the label store directly.
    void applyLabelOverrides();
    [[nodiscard]] const std::optional<PortRef>& renameTarget() const { return m_now.renameTarget; }
    /// An absent target ends the inline rename without keeping it.
    void setRenameTarget(std::optional<PortRef> target);
    [[nodiscard]] const QString& renameDraft() const { return m_now.renameDraft; }
    void setRenameDraft(const QString& draft);
    /// `index` is a position in the state's list, which for every driver is the port's index.
    void beginRename(PortKind kind, qint64 index);
    void commitRename();
    /// Keeps a custom label, and tells the device if it is connected and there is a name to tell. Blank
    /// clears the label.
    void rename(PortKind kind, qint64 index, const QString& label);

    [[nodiscard]] const QList<Salvo>& salvos() const { return m_now.salvos; }
    void saveSalvo(const QString& name, std::optional<QUuid> panelID);
    /// Captures the current routing into an existing salvo.
    void updateSalvo(const Salvo& salvo);
    /// False when the name is blank or taken, in any case, within the salvo's scope.
    bool renameSalvo(const Salvo& salvo, const QString& name);
    void deleteSalvo(const Salvo& salvo);
    [[nodiscard]] QList<Route> applicableRoutes(const Salvo& salvo) const;
    [[nodiscard]] SalvoDiff diff(const Salvo& salvo) const;
    void fireSalvo(const Salvo& salvo);
    [[nodiscard]] QList<Salvo> visibleSalvos() const;
    [[nodiscard]] QList<Salvo> fullRouterSalvos() const;
    [[nodiscard]] bool showsSalvoStrip() const;
    [[nodiscard]] qint64 salvoCount(const SubPanel& panel) const;

    [[nodiscard]] const QList<SubPanel>& panels() const { return m_now.panels; }
    [[nodiscard]] std::optional<QUuid> activePanelID() const { return m_now.activePanelID; }
    void setActivePanelID(std::optional<QUuid> panelID);
    [[nodiscard]] std::optional<SubPanel> activePanel() const;
    /// The ports that the screens show: the active panel's in its order, or all. The reference holds until
    /// the next change of state or panel.
    [[nodiscard]] const QList<Port>& visibleSources() const
    {
        return m_panelPorts ? m_panelPorts->sources : m_state.sources;
    }
    [[nodiscard]] const QList<Port>& visibleDestinations() const
    {
        return m_panelPorts ? m_panelPorts->destinations : m_state.destinations;
    }
    [[nodiscard]] SubPanel newPanelDraft() const;
    void savePanel(const SubPanel& panel);
    void duplicatePanel(const SubPanel& panel);
    /// The panel's salvos die with it.
    void deletePanel(const SubPanel& panel);
    /// Moves the panels at these list positions, as one block in their order, to before position `toOffset`.
    void movePanels(const QSet<qsizetype>& fromOffsets, qsizetype toOffset);

signals:
    void statusChanged();
    void statusMessageChanged();
    void readingProgressChanged();
    void lastErrorChanged();
    void viewModeChanged();
    void takeModeChanged();
    void primaryLevelChanged();
    void breakawayLevelsChanged();
    void routingDirectionChanged();
    /// Any of `pendingDestination`, `pendingSource`, `pendingDestinations`.
    void stagingChanged();
    /// Any of `selectedDestination`, `selectedDestinations`, `selectedSource`.
    void selectionChanged();
    void multiSelectModeChanged();

    /// A whole new picture: ports, levels, routing, locks, everything.
    void stateReplaced();
    /// One tally. Everything else of the state is as it was.
    void crosspointChanged(qint64 level, qint64 destination);
    void lockChanged(qint64 destination);
    void inputStatusChanged(qint64 input);
    /// Effective names of ports changed, of any number of them.
    void labelsChanged();
    /// The lists of visible ports changed, by a new state or a panel.
    void visiblePortsChanged();

    void renameTargetChanged();
    void renameDraftChanged();
    void salvosChanged();
    void panelsChanged();
    void activePanelChanged();

private:
    /// What observers are told of property by property.
    struct Observed {
        ConnectionStatus status = Disconnected{};
        QString statusMessage;
        std::optional<double> readingProgress;
        std::optional<QString> lastError;
        RouteViewMode viewMode = RouteViewMode::matrix;
        TakeMode takeMode = TakeMode::immediate;
        RoutingDirection routingDirection = RoutingDirection::destinationLed;
        qint64 primaryLevel = 0;
        QSet<qint64> breakawayLevels;
        bool multiSelectMode = false;
        Selection selection;
        Staging staging;
        std::optional<PortRef> renameTarget;
        QString renameDraft;
        QList<Salvo> salvos;
        QList<SubPanel> panels;
        std::optional<QUuid> activePanelID;
    };
    class Change;

    using Command = std::function<QCoro::Task<>(RouterDriver&)>;
    using FailureHandler = std::function<void(const QString& description)>;

    void teardown();
    void setReadingProgress(std::optional<double> fraction);
    void tellDriverToDisconnect();
    /// Hands the command to the driver on a later turn. Without a driver nothing happens and nothing is said.
    void send(Command command, FailureHandler onFailure);

    void apply(RouterDriverEvent&& event);
    void handle(driverEvent::Status&& event);
    void handle(driverEvent::Connected&& event);
    void handle(driverEvent::StateReplaced&& event);
    void handle(driverEvent::RouteChanged&& event);
    void handle(driverEvent::LabelChanged&& event);
    void handle(driverEvent::LockChanged&& event);
    void handle(driverEvent::InputStatusChanged&& event);
    void handle(driverEvent::Disconnected&& event);
    void handle(driverEvent::Error&& event);
    void handle(driverEvent::CommandRefused&& event);
    void adopt(RouterState&& newState);
    void fitToState();

    [[nodiscard]] bool isConfirming() const { return m_now.takeMode == TakeMode::confirm; }
    [[nodiscard]] QSet<qint64> unlockedDestinations() const;
    [[nodiscard]] QString nameForLockMessage(qint64 destination) const;
    void stageXY(qint64 source);
    void sendRoutes(const QList<Route>& routes);
    /// Returns what each tally was just before it was written.
    QList<Crosspoint> writeTallies(const QList<Crosspoint>& tallies);
    void setLocked(qint64 destination, bool isLocked);

    [[nodiscard]] PortLabels customLabels() const;
    void learnDeviceLabel(PortKind kind, qint64 index, const QString& label);
    /// Gives every port its effective name; whether that changed any.
    bool layAllLabels();
    [[nodiscard]] VisiblePorts visiblePorts() const { return {visibleSources(), visibleDestinations()}; }

    [[nodiscard]] bool isPanelSalvo(const Salvo& salvo) const;
    [[nodiscard]] std::optional<SubPanel> panel(std::optional<QUuid> panelID) const;
    void readSalvosBack();

    void readPanelsBack();
    void refreshPanelPorts();
    void pruneSelectionsToVisible();

    const RouterConnection m_connection;
    const Environment m_environment;
    /// This router's key in every store.
    const QString m_storeKey;
    RouterState m_state;
    DeviceLabels m_deviceLabels;
    Observed m_now;
    /// Absent while the whole router is shown.
    std::optional<VisiblePorts> m_panelPorts;
    std::shared_ptr<RouterDriver> m_driver;
    std::stop_source m_eventStop;
    /// The outermost operation under way.
    Change* m_change = nullptr;
};

} // namespace corvane
