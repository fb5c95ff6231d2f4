#pragma once

#include "Controllers/MatrixController.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "support/FakeDriver.h"
#include "support/Files.h"
#include "support/ManualQueue.h"

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

/// A router of this size: sources "In 1"…, destinations "Out 1"…, each destination d fed by source d on every
/// level as far as there are sources.
inline RouterState matrix(qint64 sources, qint64 destinations, qint64 levels = 1)
{
    RouterState state;
    for (qint64 i = 0; i < sources; ++i)
        state.sources.append({i, PortKind::source, u"In %1"_s.arg(i + 1)});
    for (qint64 i = 0; i < destinations; ++i)
        state.destinations.append({i, PortKind::destination, u"Out %1"_s.arg(i + 1)});
    for (qint64 level = 0; level < levels; ++level) {
        state.levels.append({level, u"Level %1"_s.arg(level), LevelKind::video});
        for (qint64 i = 0; i < std::min(sources, destinations); ++i)
            state.routing[level].insert(i, i);
    }
    return state;
}

/// A controller whose drivers do as the test says and whose time stands still.
class ControllerTest : public testing::Test {
protected:
    [[nodiscard]] std::shared_ptr<MatrixController> makeController()
    {
        return std::make_shared<MatrixController>(
            router, MatrixController::Environment{queue, maker(), labels, salvos, panels});
    }

    /// Brings the controller up on a router in this state, and forgets how it got there.
    void connectTo(const RouterState& state)
    {
        controller->connect();
        report(driverEvent::Connected{state});
        driver().calls.clear();
    }

    void report(RouterDriverEvent event)
    {
        driver().report(std::move(event));
        queue.runReady();
    }

    [[nodiscard]] FakeDriver& driver() { return *drivers.back(); }

    /// What the driver has been told since the last call.
    [[nodiscard]] std::vector<std::string> told()
    {
        queue.runReady();
        return std::exchange(driver().calls, {});
    }

    [[nodiscard]] QString lastError() const { return controller->lastError().value_or(QString()); }

    ManualQueue queue;
    RouterConnection router;
    TemporaryFolder folder;
    LabelStore labels{folder.path()};
    SalvoStore salvos{folder.path()};
    PanelStore panels{folder.path()};
    /// One for each `connect`.
    std::vector<std::shared_ptr<FakeDriver>> drivers;
    std::shared_ptr<MatrixController> controller = makeController();

private:
    [[nodiscard]] DriverMaker maker()
    {
        return [this](const RouterConnection&) {
            drivers.push_back(std::make_shared<FakeDriver>());
            return drivers.back();
        };
    }
};

/// Everything that a controller shows.
struct Snapshot {
    RouterState state;
    OperatorState operatorState;
    ConnectionStatus status;
    QString statusMessage;
    QString connectionFailure;
    std::optional<QString> lastError;
    std::optional<PortRef> renameTarget;
    QList<Salvo> salvos;
    QList<SubPanel> panels;
    std::optional<QUuid> activePanelID;
    bool operator==(const Snapshot&) const = default;
};

inline Snapshot snapshot(const MatrixController& controller)
{
    return {controller.state(), controller.operatorState(), controller.status(), controller.statusMessage(),
        controller.connectionFailure(), controller.lastError(), controller.renameTarget(),
        controller.salvos(), controller.panels(), controller.activePanelID()};
}

/// Notes the signals of a controller in order, for example "changed" and "crosspoint 0 5".
class SignalLog {
public:
    explicit SignalLog(MatrixController& controller)
    {
        using C = MatrixController;
        const auto observe = [&](void (C::*signal)(), const char* name) {
            QObject::connect(&controller, signal, &m_context, [this, name] { note(name); });
        };
        observe(&C::changed, "changed");
        observe(&C::stateReplaced, "state");
        observe(&C::labelsChanged, "labels");
        observe(&C::visiblePortsChanged, "visible ports");
        observe(&C::activePanelChanged, "active panel");
        observe(&C::renameDraftChanged, "rename draft");
        QObject::connect(&controller, &C::lockChanged, &m_context, [this](qint64 i) { note("lock", i); });
        QObject::connect(
            &controller, &C::inputStatusChanged, &m_context, [this](qint64 i) { note("input", i); });
        QObject::connect(&controller, &C::crosspointChanged, &m_context,
            [this](qint64 level, qint64 i) { note("crosspoint " + std::to_string(level), i); });
    }

    /// Since the last call.
    [[nodiscard]] std::vector<std::string> taken() { return std::exchange(m_signals, {}); }

private:
    void note(std::string signal) { m_signals.push_back(std::move(signal)); }
    void note(const std::string& signal, qint64 index) { note(signal + " " + std::to_string(index)); }

    QObject m_context;
    std::vector<std::string> m_signals;
};

} // namespace corvane
