#include "Views/Salvos/SalvoListModel.h"

#include "Foundation/Text.h"

#include <algorithm>

namespace corvane {

SalvoListModel::SalvoListModel(SerialQueue& mainQueue, SalvoDialogs::Place place)
    : m_diffs(mainQueue), m_dialogs(m_diffs, place), m_progress(mainQueue)
{
    connect(&m_diffs, &SalvoDiffs::changed, this, &SalvoListModel::tellOf);
}

void SalvoListModel::setController(MatrixController* newController)
{
    if (newController == m_controller)
        return;
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = newController;
    m_diffs.setController(newController);
    m_dialogs.setController(newController);
    m_progress.setController(newController);
    if (newController) {
        connect(newController, &MatrixController::changed, this, &SalvoListModel::reload);
        connect(newController, &MatrixController::activePanelChanged, this, &SalvoListModel::reload);
        connect(newController, &QObject::destroyed, this, [this] {
            m_controller.clear();
            reload();
        });
    }
    reload();
}

void SalvoListModel::reload()
{
    setRows(m_controller ? makeRows() : QList<SalvoRow>());
    tellOfAll();
}

void SalvoListModel::tellOfAll()
{
    const auto asked = m_looks.keys();
    for (const auto& salvo : asked) {
        if (m_diffs.isWatched(salvo))
            tellOf(salvo);
        else
            m_looks.remove(salvo);
    }
}

void SalvoListModel::tellOf(const QUuid& id)
{
    const auto row = rowOf({id, 0});
    const auto shown = row ? salvoAt(*row) : std::nullopt;
    const auto before = m_looks.constFind(id);
    if (!shown || (before != m_looks.cend() && *before == look(*shown)))
        return;
    emit dataChanged(index(*row), index(*row), {lookRole});
}

std::optional<Salvo> SalvoListModel::salvo(const QUuid& id) const
{
    if (!m_controller)
        return std::nullopt;
    const auto& salvos = m_controller->salvos();
    const auto found = std::ranges::find(salvos, id, &Salvo::id);
    return found == salvos.cend() ? std::nullopt : std::optional(*found);
}

std::optional<Salvo> SalvoListModel::salvoAt(int row) const
{
    const auto* const shown = rowAt(row);
    return shown && shown->isSalvo() ? salvo(shown->id) : std::nullopt;
}

SalvoLook SalvoListModel::look(const Salvo& salvo) const
{
    return salvoTexts::look(salvo, m_diffs.of(salvo), *m_controller);
}

SalvoRow SalvoListModel::rowFor(const Salvo& salvo)
{
    return {.kind = SalvoRow::Kind::salvo,
        .id = salvo.id,
        .number = 0,
        .text = text::oneLine(salvo.name),
        .isExpanded = false,
        .isLast = false,
        .preview = {}};
}

QVariant SalvoListModel::data(const QModelIndex& index, int role) const
{
    const auto* const row = rowAt(index.row());
    if (!row)
        return {};
    if (role == rowRole)
        return QVariant::fromValue(*row);
    if (role == lookRole) {
        const auto shown = salvoAt(index.row());
        if (!shown)
            return QVariant::fromValue(SalvoLook());
        return QVariant::fromValue(m_looks[shown->id] = look(*shown));
    }
    return role == Qt::DisplayRole ? QVariant(row->text) : QVariant();
}

QHash<int, QByteArray> SalvoListModel::roleNames() const
{
    return {{rowRole, "row"}, {lookRole, "look"}};
}

RowSpeech SalvoListModel::speech(int row) const
{
    const auto* const shown = rowAt(row);
    if (!shown)
        return {};
    if (const auto spoken = salvoAt(row)) {
        const auto status = look(*spoken).status;
        const auto locked =
            status.lockedCount.isEmpty() ? QString() : u", %1 locked"_s.arg(status.lockedCount);
        return {.name = shown->text, .description = status.text + locked};
    }
    return {.name = shown->isPreview() ? shown->preview.text : shown->text,
        .role = shown->isHead() ? QAccessible::Heading : QAccessible::StaticText};
}

bool SalvoListModel::isReachable(int row) const
{
    const auto* const shown = rowAt(row);
    return shown && shown->isSalvo();
}

int SalvoListModel::startRow() const
{
    const auto first = std::ranges::find_if(rows(), &SalvoRow::isSalvo);
    return first == rows().cend() ? -1 : static_cast<int>(first - rows().cbegin());
}

void SalvoListModel::fire(int row)
{
    if (const auto wanted = salvoAt(row))
        m_dialogs.setFiring(wanted);
}

void SalvoListModel::update(int row)
{
    if (const auto wanted = salvoAt(row))
        m_dialogs.setUpdating(wanted);
}

MenuAction SalvoListModel::fireAction(const Salvo& salvo)
{
    return {u"Fire"_s, u"play.fill"_s, [this, id = salvo.id] { m_dialogs.setFiring(this->salvo(id)); }};
}

MenuAction SalvoListModel::updateAction(const Salvo& salvo, const QString& text)
{
    return {text, u"camera.viewfinder"_s, [this, id = salvo.id] { m_dialogs.setUpdating(this->salvo(id)); }};
}

MenuAction SalvoListModel::deleteAction(const Salvo& salvo, const QString& text)
{
    return {text, u"trash"_s, [this, id = salvo.id] { m_dialogs.setDeleting(this->salvo(id)); },
        Qt::Key_Delete, true};
}

} // namespace corvane
