#pragma once

#include "Controllers/EffectiveLabels.h"
#include "Controllers/PanelPorts.h"
#include "Controllers/RoutingRules.h"
#include "Controllers/SalvoDiff.h"
#include "Controllers/SalvoFiring.h"
#include "Drivers/DriverFactory.h"
#include "Foundation/QuietTimer.h"
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
struct LabelChange;
struct PortLabels;

/// The live state and all actions of one saved router: the last known picture of the device, what the
/// operator selected and staged, and every command.
///
/// Operations never throw: failures are reported in `lastError`. Routes and locks are shown at once and
/// rolled back only if the command could not be sent; what the device really did arrives later as its events
/// and always wins. The object outlives a connection: after a drop `state` keeps the last known matrix until
/// the next connection replaces it.
///
/// Main thread only; asserted. A write of an equal value emits nothing, and signals are emitted once the
/// whole operation is done. Indices are zero-based port indices and level indices; any value is safe. Signals
/// carry no values beyond what changed: read the values back.
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

    /// Reads this router's panels, salvos and active panel from the stores. Does not connect.
    MatrixController(RouterConnection connection, const Environment& environment);
    ~MatrixController() override;

    [[nodiscard]] QUuid id() const { return m_connection.id; }
    [[nodiscard]] const RouterConnection& connection() const { return m_connection; }
    [[nodiscard]] const RouterState& state() const { return m_state; }
    [[nodiscard]] const ConnectionStatus& status() const { return m_observed.status; }
    [[nodiscard]] bool isConnected() const { return std::holds_alternative<Connected>(m_observed.status); }
    [[nodiscard]] const QString& statusMessage() const { return m_observed.statusMessage; }
    /// Why the connection failed or was lost, from then until the next attempt; else empty. If an error is
    /// followed by a close, the error is the reason.
    [[nodiscard]] const QString& connectionFailure() const { return m_observed.connectionFailure; }
    /// How far the reading of the device has come while connecting, 0 to 1; absent if unknown.
    [[nodiscard]] std::optional<double> readingProgress() const { return m_observed.readingProgress; }

    /// The error banner's text. One slot: the latest wins.
    [[nodiscard]] const std::optional<QString>& lastError() const { return m_observed.lastError; }
    void setLastError(std::optional<QString> message);

    /// Starts a new connection in any status: the old driver is told to disconnect, and its further events
    /// are dropped.
    void connect();
    void disconnect();

    /// The level's name, or "L{index + 1}" when the router has no such level.
    [[nodiscard]] QString levelName(qint64 level) const;
    /// The label of the port at this position of the state's list, or "Dest {position + 1}" and
    /// "Src {position + 1}" where there is none.
    [[nodiscard]] QString destinationLabel(qint64 destination) const;
    [[nodiscard]] QString sourceLabel(qint64 source) const;

    /// What the operator has set, selected and staged, in one value to compare.
    [[nodiscard]] const OperatorState& operatorState() const { return m_operator; }

    [[nodiscard]] RouteViewMode viewMode() const { return m_operator.viewMode; }
    void setViewMode(RouteViewMode mode);

    [[nodiscard]] TakeMode takeMode() const { return m_operator.takeMode; }
    /// A real change drops what is staged.
    void setTakeMode(TakeMode mode);

    /// The level that is shown, and that locks are sent on.
    [[nodiscard]] qint64 primaryLevel() const { return m_operator.primaryLevel; }
    void setPrimaryLevel(qint64 level);

    /// The levels that a take is limited to; empty means that all levels follow.
    [[nodiscard]] const QSet<qint64>& breakawayLevels() const { return m_operator.breakawayLevels; }
    void setBreakawayLevels(const QSet<qint64>& levels);

    [[nodiscard]] RoutingDirection routingDirection() const { return m_operator.routingDirection; }
    /// In every case drops the gang, multi-select and what is staged.
    void setDirection(RoutingDirection direction);

    [[nodiscard]] std::optional<qint64> pendingDestination() const { return m_operator.staging.destination; }
    [[nodiscard]] std::optional<qint64> pendingSource() const { return m_operator.staging.source; }
    [[nodiscard]] const QSet<qint64>& pendingDestinations() const { return m_operator.staging.destinations; }
    void setPendingDestination(std::optional<qint64> destination);
    void setPendingSource(std::optional<qint64> source);
    void setPendingDestinations(const QSet<qint64>& destinations);

    [[nodiscard]] std::optional<qint64> selectedDestination() const
    {
        return m_operator.selection.destination;
    }
    /// The gang. Toggling never leaves exactly one destination in it.
    [[nodiscard]] const QSet<qint64>& selectedDestinations() const
    {
        return m_operator.selection.destinations;
    }
    [[nodiscard]] std::optional<qint64> selectedSource() const { return m_operator.selection.source; }
    [[nodiscard]] bool multiSelectMode() const { return m_operator.multiSelectMode; }
    void setMultiSelectMode(bool isOn);

    /// What is selected and staged, to put it back as it was.
    [[nodiscard]] Aim aim() const { return {m_operator.selection, m_operator.staging}; }
    void setAim(const Aim& aim);

    /// The levels that a take switches, in the router's order.
    [[nodiscard]] QList<qint64> activeLevels() const;
    /// The destinations that a source click applies to, ascending.
    [[nodiscard]] QList<qint64> xyTargets() const;
    [[nodiscard]] std::optional<PendingTake> pendingTake() const;
    /// True also while only half a route is staged.
    [[nodiscard]] bool hasStaging() const;
    [[nodiscard]] bool allGanged() const;
    [[nodiscard]] bool allDestinationsStaged() const;
    /// The staged destinations that are locked now, ascending: a take will refuse these.
    [[nodiscard]] QList<qint64> lockedPendingDestinations() const;
    /// "{name} is locked.", the text of a refused take.
    [[nodiscard]] QString lockMessage(qint64 destination) const;

    void clearPending();
    /// Routes one source to one destination on the active levels. A locked destination is refused with
    /// `lockMessage` in `lastError`.
    void take(qint64 source, qint64 destination);
    /// Stages one route, as `take` refuses a locked destination.
    void stageRoute(qint64 source, qint64 destination);
    /// Takes what is staged, if it is complete: the unlocked destinations are routed, the others refused.
    void confirmTake();
    /// A click on a destination's header in the grid: stages it in confirm mode, does nothing in immediate
    /// mode.
    void selectDestination(qint64 destination);
    void focusDestination(qint64 destination);
    void toggleDestinationInGang(qint64 destination);
    void selectAllInGang();
    void deselectAllInGang();
    /// Routes or stages the source on every target; locked targets are refused as by `take`.
    void chooseSource(qint64 source);
    void focusSource(qint64 source);
    void assignDestination(qint64 destination);
    /// Changes to confirm mode, whatever the mode was.
    void selectAllDestinations();
    void toggleLock(qint64 destination);

    /// Applies the custom labels. Call after a change of the label store that this controller did not make.
    void applyLabelOverrides();
    [[nodiscard]] const std::optional<PortRef>& renameTarget() const { return m_observed.renameTarget; }
    /// An absent target ends the inline rename without keeping it.
    void setRenameTarget(std::optional<PortRef> target);
    [[nodiscard]] const QString& renameDraft() const { return m_renameDraft; }
    void setRenameDraft(const QString& draft);
    /// `index` is a position in the state's list, which for every driver is the port's index.
    void beginRename(PortKind kind, qint64 index);
    void commitRename();
    /// Stores a custom label, and sends it to the device if that is connected and the label is not blank.
    /// Blank clears the label. The label is cleaned by `naming::entered`.
    void rename(PortKind kind, qint64 index, const QString& label);
    /// `rename` for each, and one save.
    void renameAll(const QList<LabelChange>& changes);

    [[nodiscard]] const QList<Salvo>& salvos() const { return m_observed.salvos; }
    void saveSalvo(const QString& name, std::optional<QUuid> panelID);
    /// Captures the current routing into an existing salvo.
    void updateSalvo(const Salvo& salvo);
    /// False when the name is blank or taken, in any case, within the salvo's scope.
    bool renameSalvo(const Salvo& salvo, const QString& name);
    void deleteSalvo(const Salvo& salvo);
    [[nodiscard]] QList<Route> applicableRoutes(const Salvo& salvo) const;
    [[nodiscard]] SalvoDiff diff(const Salvo& salvo) const;
    void fireSalvo(const Salvo& salvo);
    /// How far the router has confirmed the large salvo that was fired last; absent once all is confirmed, or
    /// nothing more has been for a while.
    [[nodiscard]] std::optional<FiringProgress> firingProgress() const;
    [[nodiscard]] QList<Salvo> visibleSalvos() const;
    [[nodiscard]] QList<Salvo> fullRouterSalvos() const;
    [[nodiscard]] bool showsSalvoStrip() const;
    [[nodiscard]] qint64 salvoCount(const SubPanel& panel) const;

    [[nodiscard]] const QList<SubPanel>& panels() const { return m_observed.panels; }
    [[nodiscard]] std::optional<QUuid> activePanelID() const { return m_activePanelID; }
    void setActivePanelID(std::optional<QUuid> panelID);
    [[nodiscard]] std::optional<SubPanel> activePanel() const;
    /// The ports that the screens show: the active panel's in its order, or all. The reference is valid until
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
    /// Deletes the panel's salvos too.
    void deletePanel(const SubPanel& panel);
    /// Moves the panels at these list positions, as one block in their order, to before position `toOffset`.
    void movePanels(const QSet<qsizetype>& fromOffsets, qsizetype toOffset);

signals:
    /// Anything that has no signal of its own: the connection, what the operator has set, selected and
    /// staged, which of that is locked, the error, the rename target, the salvos and the panels.
    void changed();

    /// A whole new picture: ports, levels, routing, locks, everything.
    void stateReplaced();
    /// One tally; nothing else of the state.
    void crosspointChanged(qint64 level, qint64 destination);
    void lockChanged(qint64 destination);
    void inputStatusChanged(qint64 input);
    void firingProgressChanged();
    /// Effective names of any number of ports changed. Emitted at most once a turn of the main queue for all
    /// that the device reported since.
    void labelsChanged();
    /// The lists of visible ports changed, by a new state or a panel.
    void visiblePortsChanged();
    /// Another panel is active, or the active one was edited.
    void activePanelChanged();
    void renameDraftChanged();

private:
    /// What `changed` is emitted for, besides the operator's own state.
    struct Observed {
        ConnectionStatus status = Disconnected{};
        QString statusMessage;
        QString connectionFailure;
        std::optional<double> readingProgress;
        std::optional<QString> lastError;
        std::optional<PortRef> renameTarget;
        QList<Salvo> salvos;
        QList<SubPanel> panels;
        bool operator==(const Observed&) const = default;
    };
    class Change;

    using Command = std::function<QCoro::Task<>(RouterDriver&)>;
    using FailureHandler = std::function<void(const QString& description)>;

    void teardown();
    void setReadingProgress(std::optional<double> fraction);
    void tellDriverToDisconnect();
    /// Starts a task that calls the driver with the command. Without a driver nothing happens.
    void startCommand(Command command, FailureHandler onFailure);

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

    [[nodiscard]] bool isConfirming() const { return m_operator.takeMode == TakeMode::confirm; }
    [[nodiscard]] QSet<qint64> unlockedDestinations() const;
    /// Leaves out the locked destinations, and reports each in `lastError`.
    QList<qint64> refuseLocked(const QList<qint64>& destinations);
    void stageXY(qint64 source);
    /// Shows the routes, starts the command that makes them, and takes them back if it could not be sent.
    void routeOptimistically(const QList<Route>& routes);
    /// Returns what each tally was just before it was written.
    QList<Crosspoint> writeTallies(const QList<Crosspoint>& tallies);
    void setLocked(qint64 destination, bool isLocked);

    /// Whether the router has this port, or this destination on this level.
    [[nodiscard]] bool hasPort(PortKind kind, qint64 index) const;
    [[nodiscard]] bool hasCrosspoint(qint64 level, qint64 destination) const;

    [[nodiscard]] PortLabels customLabels() const;
    void sendLabel(const PortRef& port, const QString& label);
    void applyReportedLabels();
    /// Gives every port its effective name; returns whether that changed any.
    bool applyAllLabels();
    [[nodiscard]] VisiblePorts visiblePorts() const { return {visibleSources(), visibleDestinations()}; }

    [[nodiscard]] bool isPanelSalvo(const Salvo& salvo) const;
    [[nodiscard]] std::optional<SubPanel> panel(std::optional<QUuid> panelID) const;
    void readSalvosBack();
    void beginFiring(const QList<Route>& changes);
    void noteFiring(bool isConfirming);
    void endFiring();

    void readPanelsBack();
    void refreshPanelPorts();
    void pruneSelectionsToVisible();

    const RouterConnection m_connection;
    const Environment m_environment;
    /// This router's key in every store.
    const QString m_storeKey;
    RouterState m_state;
    /// Has an entry for every port of `m_state`, and no other.
    DeviceLabels m_deviceLabels;
    /// The ports whose device label changed since labels were last applied.
    QSet<PortRef> m_reportedLabels;
    OperatorState m_operator;
    Observed m_observed;
    QString m_renameDraft;
    std::optional<QUuid> m_activePanelID;
    /// Absent while the whole router is shown.
    std::optional<VisiblePorts> m_panelPorts;
    std::shared_ptr<RouterDriver> m_driver;
    std::stop_source m_eventStop;
    std::optional<SalvoFiring> m_firing;
    QuietTimer m_firingSilence;
    /// The outermost operation in progress.
    Change* m_change = nullptr;
};

} // namespace corvane
