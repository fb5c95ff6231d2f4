#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Model/Naming.h"
#include "Model/SalvoStore.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

void MatrixController::saveSalvo(const QString& name, std::optional<QUuid> panelID)
{
    const auto scope = panel(panelID);
    const auto entered = naming::entered(name);
    if (entered.isEmpty())
        return;
    Salvo salvo;
    salvo.name = entered;
    salvo.routes = captureRoutes(m_state, scope);
    salvo.savedAt = Timestamp::now();
    if (scope)
        salvo.panelID = scope->id;
    if (salvo.routes.isEmpty()) {
        setLastError(u"Nothing to capture — none of this panel's destinations exist on this router."_s);
        return;
    }
    m_environment.salvoStore.add(salvo, m_connection.id);
    readSalvosBack();
}

void MatrixController::updateSalvo(const Salvo& salvo)
{
    const auto routes = captureRoutes(m_state, panel(salvo.panelID));
    if (routes.isEmpty()) {
        setLastError(u"Nothing to capture — none of this salvo's destinations exist on this router."_s);
        return;
    }
    m_environment.salvoStore.update(salvo.id, routes, Timestamp::now(), m_connection.id);
    readSalvosBack();
}

bool MatrixController::renameSalvo(const Salvo& salvo, const QString& name)
{
    const auto entered = naming::entered(name);
    const auto isNamesake = [&](const Salvo& other) {
        return other.id != salvo.id && other.panelID == salvo.panelID
            && other.name.compare(entered, Qt::CaseInsensitive) == 0;
    };
    if (entered.isEmpty() || std::ranges::any_of(m_observed.salvos, isNamesake))
        return false;
    m_environment.salvoStore.rename(salvo.id, entered, m_connection.id);
    readSalvosBack();
    return true;
}

void MatrixController::deleteSalvo(const Salvo& salvo)
{
    m_environment.salvoStore.remove(salvo.id, m_connection.id);
    readSalvosBack();
}

/// The store may have merged the salvo with a namesake.
void MatrixController::readSalvosBack()
{
    const Change change(*this);
    m_observed.salvos = m_environment.salvoStore.byConnection().value(m_storeKey);
}

QList<Route> MatrixController::applicableRoutes(const Salvo& salvo) const
{
    return SalvoDiff::applicableRoutes(salvo, m_state);
}

SalvoDiff MatrixController::diff(const Salvo& salvo) const
{
    return SalvoDiff::between(salvo, m_state);
}

void MatrixController::fireSalvo(const Salvo& salvo)
{
    const auto routes = applicableRoutes(salvo);
    if (routes.isEmpty()) {
        setLastError(u"\"%1\" has no routes that apply to this router."_s.arg(salvo.name));
        return;
    }
    if (routes.size() > SalvoFiring::leastRoutes)
        beginFiring(diff(salvo).changes);
    routeOptimistically(routes);
}

std::optional<FiringProgress> MatrixController::firingProgress() const
{
    return m_firing ? std::optional(m_firing->progress()) : std::nullopt;
}

void MatrixController::beginFiring(const QList<Route>& changes)
{
    m_firing.emplace(changes);
    noteFiring(true);
}

void MatrixController::noteFiring(bool isConfirming)
{
    if (!isConfirming || !m_firing)
        return;
    if (m_firing->isDone()) {
        endFiring();
        return;
    }
    m_firingSilence.restart();
    emit firingProgressChanged();
}

void MatrixController::endFiring()
{
    m_firingSilence.cancel();
    if (!m_firing)
        return;
    m_firing.reset();
    emit firingProgressChanged();
}

bool MatrixController::isPanelSalvo(const Salvo& salvo) const
{
    return panel(salvo.panelID).has_value();
}

QList<Salvo> MatrixController::visibleSalvos() const
{
    if (!m_activePanelID)
        return fullRouterSalvos();
    QList<Salvo> visible;
    std::ranges::copy_if(m_observed.salvos, std::back_inserter(visible),
        [this](const Salvo& salvo) { return salvo.panelID == m_activePanelID && isPanelSalvo(salvo); });
    return visible;
}

QList<Salvo> MatrixController::fullRouterSalvos() const
{
    QList<Salvo> salvos;
    std::ranges::copy_if(m_observed.salvos, std::back_inserter(salvos),
        [this](const Salvo& salvo) { return !isPanelSalvo(salvo); });
    return salvos;
}

bool MatrixController::showsSalvoStrip() const
{
    return activePanel() || !visibleSalvos().isEmpty();
}

qint64 MatrixController::salvoCount(const SubPanel& panel) const
{
    return std::ranges::count(m_observed.salvos, std::optional(panel.id), &Salvo::panelID);
}

} // namespace corvane
