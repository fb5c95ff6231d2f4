#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Foundation/Text.h"
#include "Model/LabelStore.h"

namespace corvane {

void MatrixController::learnDeviceLabel(PortKind kind, qint64 index, const QString& label)
{
    const bool isSource = kind == PortKind::source;
    auto& device = isSource ? m_deviceLabels.sources : m_deviceLabels.destinations;
    device.insert(index, label);

    const auto custom = customLabels();
    const auto& customNames = isSource ? custom.sources : custom.destinations;
    bool isChanged = layLabel(isSource ? m_state.sources : m_state.destinations, index, customNames, device);
    if (m_panelPorts) {
        auto& shown = isSource ? m_panelPorts->sources : m_panelPorts->destinations;
        isChanged |= layLabel(shown, index, customNames, device);
    }
    if (isChanged)
        emit labelsChanged();
}

void MatrixController::applyLabelOverrides()
{
    if (layAllLabels())
        emit labelsChanged();
}

bool MatrixController::layAllLabels()
{
    const auto custom = customLabels();
    const bool isAnySource = layLabels(m_state.sources, custom.sources, m_deviceLabels.sources);
    const bool isAnyDestination =
        layLabels(m_state.destinations, custom.destinations, m_deviceLabels.destinations);
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
    m_now.renameTarget = target;
}

void MatrixController::setRenameDraft(const QString& draft)
{
    const Change change(*this);
    m_now.renameDraft = draft;
}

void MatrixController::beginRename(PortKind kind, qint64 index)
{
    const Change change(*this);
    const auto& ports = kind == PortKind::source ? m_state.sources : m_state.destinations;
    m_now.renameDraft = index >= 0 && index < ports.size() ? ports.at(index).label : QString();
    m_now.renameTarget = PortRef{kind, index};
}

void MatrixController::commitRename()
{
    const auto target = m_now.renameTarget;
    if (!target)
        return;
    const auto draft = m_now.renameDraft;
    // Closed first, for whoever hears of the new name may begin the next rename.
    setRenameTarget(std::nullopt);
    rename(target->kind, target->index, draft);
}

void MatrixController::rename(PortKind kind, qint64 index, const QString& label)
{
    m_environment.labelStore.set(label, kind, index, m_connection.id);
    if (const auto name = text::trimWhiteSpace(label); isConnected() && !name.isEmpty()) {
        send([name, index, kind](RouterDriver& driver) { return driver.setLabel(name, index, kind); },
            [](const QString&) {
                // The custom name is in force already: a router that can't keep names makes no difference to
                // anyone.
            });
    }
    // Last, for what an observer does upon the new name must reach the router after it.
    applyLabelOverrides();
}

} // namespace corvane
