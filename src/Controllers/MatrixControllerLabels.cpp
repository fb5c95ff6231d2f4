#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Model/LabelStore.h"
#include "Model/Naming.h"

#include <utility>

namespace corvane {

void MatrixController::applyReportedLabels()
{
    const auto custom = customLabels();
    bool isChanged = false;
    for (const auto& [kind, index] : std::exchange(m_reportedLabels, {})) {
        isChanged |= kind == PortKind::source
            ? applyLabel(m_state.sources, index, custom.sources, m_deviceLabels.sources)
            : applyLabel(m_state.destinations, index, custom.destinations, m_deviceLabels.destinations);
    }
    if (!isChanged)
        return;
    refreshPanelPorts();
    emit labelsChanged();
}

void MatrixController::applyLabelOverrides()
{
    Q_ASSERT(m_environment.mainQueue.isCurrent());
    if (applyAllLabels())
        emit labelsChanged();
}

bool MatrixController::applyAllLabels()
{
    const auto custom = customLabels();
    const bool isAnySource = applyLabels(m_state.sources, custom.sources, m_deviceLabels.sources);
    const bool isAnyDestination =
        applyLabels(m_state.destinations, custom.destinations, m_deviceLabels.destinations);
    if (!isAnySource && !isAnyDestination)
        return false;
    refreshPanelPorts();
    return true;
}

PortLabels MatrixController::customLabels() const
{
    return m_environment.labelStore.byConnection().value(m_storeKey);
}

void MatrixController::setRenameTarget(std::optional<PortRef> target)
{
    const Change change(*this);
    m_observed.renameTarget = target;
}

void MatrixController::setRenameDraft(const QString& draft)
{
    const Change change(*this);
    m_renameDraft = draft;
}

void MatrixController::beginRename(PortKind kind, qint64 index)
{
    const Change change(*this);
    const auto& ports = kind == PortKind::source ? m_state.sources : m_state.destinations;
    m_renameDraft = index >= 0 && index < ports.size() ? ports.at(index).label : QString();
    m_observed.renameTarget = PortRef{kind, index};
}

void MatrixController::commitRename()
{
    const auto target = m_observed.renameTarget;
    if (!target)
        return;
    const auto draft = m_renameDraft;
    // Ended first, because an observer of the new name may begin the next rename.
    setRenameTarget(std::nullopt);
    rename(target->kind, target->index, draft);
}

void MatrixController::rename(PortKind kind, qint64 index, const QString& label)
{
    renameAll({{{kind, index}, label}});
}

void MatrixController::renameAll(const QList<LabelChange>& changes)
{
    m_environment.labelStore.setAll(changes, m_connection.id);
    for (const auto& [port, label] : changes)
        sendLabel(port, naming::entered(label));
    // Last, so that what an observer does now reaches the router after the names.
    applyLabelOverrides();
}

void MatrixController::sendLabel(const PortRef& port, const QString& label)
{
    if (!isConnected() || label.isEmpty())
        return;
    startCommand(
        [port, label](RouterDriver& driver) { return driver.setLabel(label, port.index, port.kind); },
        [](const QString&) {
            // Nothing to report: the custom label is in force, whether the router can store names or not.
        });
}

} // namespace corvane
