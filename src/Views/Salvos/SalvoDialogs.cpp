#include "Views/Salvos/SalvoDialogs.h"

#include "Model/Naming.h"

#include <algorithm>
#include <utility>

namespace corvane {

SalvoDialogs::SalvoDialogs(SalvoDiffs& diffs, Place place) : m_diffs(diffs), m_place(place)
{
    connect(&diffs, &SalvoDiffs::changed, this, [this](const QUuid& salvo) {
        if (m_firing && m_firing->id == salvo)
            refreshConfirmation();
    });
}

void SalvoDialogs::setController(MatrixController* newController)
{
    if (newController == m_controller)
        return;
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = newController;
    if (newController) {
        connect(newController, &MatrixController::changed, this, &SalvoDialogs::follow);
        connect(newController, &MatrixController::activePanelChanged, this, &SalvoDialogs::follow);
    }
    cancel();
}

std::optional<Salvo> SalvoDialogs::current(const std::optional<Salvo>& salvo) const
{
    if (!salvo || !m_controller)
        return std::nullopt;
    const auto& salvos = m_controller->salvos();
    const auto found = std::ranges::find(salvos, salvo->id, &Salvo::id);
    return found == salvos.cend() ? std::nullopt : std::optional(*found);
}

void SalvoDialogs::follow()
{
    m_deleting = current(m_deleting);
    m_updating = current(m_updating);
    watchFiring(current(m_firing));
    refreshConfirmation();
    emit changed();
}

void SalvoDialogs::watchFiring(const std::optional<Salvo>& salvo)
{
    const auto before = std::exchange(m_firing, salvo);
    if (m_firing)
        m_diffs.watch(m_firing->id);
    if (before)
        m_diffs.unwatch(before->id);
}

void SalvoDialogs::refreshConfirmation()
{
    SalvoQuestion question;
    if (m_firing && m_controller)
        question = salvoTexts::fireQuestion(*m_firing, m_diffs.of(*m_firing), *m_controller);
    if (std::exchange(m_fireConfirmation, question) != question)
        emit changed();
}

void SalvoDialogs::setFiring(const std::optional<Salvo>& salvo)
{
    watchFiring(salvo);
    refreshConfirmation();
}

void SalvoDialogs::setDeleting(const std::optional<Salvo>& salvo)
{
    m_deleting = salvo;
    emit changed();
}

void SalvoDialogs::setUpdating(const std::optional<Salvo>& salvo)
{
    m_updating = salvo;
    emit changed();
}

SalvoQuestion SalvoDialogs::question() const
{
    if (m_deleting)
        return salvoTexts::deleteQuestion(*m_deleting);
    return m_updating ? salvoTexts::updateQuestion(*m_updating) : SalvoQuestion();
}

std::optional<SubPanel> SalvoDialogs::draftPanel() const
{
    if (!m_controller || !m_draftScope)
        return std::nullopt;
    const auto& panels = m_controller->panels();
    const auto found = std::ranges::find(panels, *m_draftScope, &SubPanel::id);
    return found == panels.cend() ? std::nullopt : std::optional(*found);
}

QString SalvoDialogs::newMessage() const
{
    return salvoTexts::newSalvoMessage(draftPanel(), m_place == Place::sheet);
}

void SalvoDialogs::setDraftName(const QString& name)
{
    if (std::exchange(m_draftName, name) != name)
        emit changed();
}

void SalvoDialogs::beginNew()
{
    if (!m_controller)
        return;
    m_draftScope = m_controller->activePanelID();
    m_draftName = salvoTexts::newSalvoName(m_controller->visibleSalvos());
    m_showingNew = true;
    emit changed();
}

void SalvoDialogs::commitNew()
{
    if (!m_controller || !m_showingNew)
        return;
    const auto scope = m_draftScope;
    const auto name = naming::entered(m_draftName);
    cancel();
    if (name.isEmpty())
        return;
    const auto& salvos = m_controller->salvos();
    const auto namesake = std::ranges::find_if(salvos, [&](const Salvo& salvo) {
        return salvo.panelID == scope && salvo.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    // Under the name as it stands, which so keeps its case. A copy, for the list changes meanwhile.
    const auto kept = namesake == salvos.cend() ? name : namesake->name;
    m_controller->saveSalvo(kept, scope);
}

void SalvoDialogs::fire()
{
    const auto salvo = m_firing;
    if (!salvo || !m_controller || !salvoTexts::canFire(m_controller->diff(*salvo), *m_controller))
        return;
    // Before the dialog goes, for that is a frame, and the command would wait for it.
    m_controller->fireSalvo(*salvo);
    setFiring(std::nullopt);
}

void SalvoDialogs::confirm()
{
    if (!m_controller)
        return;
    const auto deleting = m_deleting;
    const auto updating = m_updating;
    cancel();
    if (deleting)
        m_controller->deleteSalvo(*deleting);
    else if (updating)
        m_controller->updateSalvo(*updating);
}

void SalvoDialogs::cancel()
{
    watchFiring(std::nullopt);
    m_fireConfirmation = {};
    m_deleting.reset();
    m_updating.reset();
    m_showingNew = false;
    m_draftName.clear();
    m_draftScope.reset();
    emit changed();
}

} // namespace corvane
