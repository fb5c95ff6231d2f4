#include "Controllers/MatrixController.h"

#include "Controllers/MatrixControllerChange.h"
#include "Foundation/Text.h"
#include "Model/SalvoStore.h"

#include <algorithm>

namespace corvane {

void MatrixController::saveSalvo(const QString& name, std::optional<QUuid> panelID)
{
    const auto scope = panel(panelID);
    const auto trimmed = text::trimWhiteSpace(name);
    if (trimmed.isEmpty())
        return;
    Salvo salvo;
    salvo.name = trimmed;
    salvo.routes = captureRoutes(m_state, scope);
    salvo.savedAt = Timestamp::now();
    if (scope)
        salvo.panelID = scope->id;
    if (salvo.routes.isEmpty()) {
        setLastError(
            QStringLiteral("Nothing to capture — none of this panel's destinations exist on this router."));
        return;
    }
    m_environment.salvoStore.add(salvo, m_connection.id);
    readSalvosBack();
}

void MatrixController::updateSalvo(const Salvo& salvo)
{
    const auto routes = captureRoutes(m_state, panel(salvo.panelID));
    if (routes.isEmpty()) {
        setLastError(
            QStringLiteral("Nothing to capture — none of this salvo's destinations exist on this router."));
        return;
    }
    m_environment.salvoStore.update(salvo.id, routes, Timestamp::now(), m_connection.id);
    readSalvosBack();
}

bool MatrixController::renameSalvo(const Salvo& salvo, const QString& name)
{
    const auto trimmed = text::trimWhiteSpace(name);
    const auto isNamesake = [&](const Salvo& other) {
        return other.id != salvo.id && other.panelID == salvo.panelID
            && other.name.compare(trimmed, Qt::CaseInsensitive) == 0;
    };
    if (trimmed.isEmpty() || std::ranges::any_of(m_now.salvos, isNamesake))
        return false;
    m_environment.salvoStore.rename(salvo.id, trimmed, m_connection.id);
    readSalvosBack();
    return true;
}

void MatrixController::deleteSalvo(const Salvo& salvo)
{
    m_environment.salvoStore.remove(salvo.id, m_connection.id);
    readSalvosBack();
}

/// The store may have merged with a namesake, so its list is the truth.
void MatrixController::readSalvosBack()
{
    const Change change(*this);
    m_now.salvos = m_environment.salvoStore.byConnection().value(m_storeKey);
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
        setLastError(QStringLiteral("\"%1\" has no routes that apply to this router.").arg(salvo.name));
        return;
    }
    sendRoutes(routes);
}

bool MatrixController::isPanelSalvo(const Salvo& salvo) const
{
    return panel(salvo.panelID).has_value();
}

QList<Salvo> MatrixController::visibleSalvos() const
{
    if (!m_now.activePanelID)
        return fullRouterSalvos();
    QList<Salvo> visible;
    std::ranges::copy_if(m_now.salvos, std::back_inserter(visible),
        [this](const Salvo& salvo) { return salvo.panelID == m_now.activePanelID && isPanelSalvo(salvo); });
    return visible;
}

QList<Salvo> MatrixController::fullRouterSalvos() const
{
    QList<Salvo> salvos;
    std::ranges::copy_if(m_now.salvos, std::back_inserter(salvos),
        [this](const Salvo& salvo) { return !isPanelSalvo(salvo); });
    return salvos;
}

bool MatrixController::showsSalvoStrip() const
{
    return activePanel() || !visibleSalvos().isEmpty();
}

qint64 MatrixController::salvoCount(const SubPanel& panel) const
{
    return std::ranges::count(m_now.salvos, std::optional(panel.id), &Salvo::panelID);
}

} // namespace corvane
