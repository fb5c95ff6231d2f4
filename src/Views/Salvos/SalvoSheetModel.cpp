#include "Views/Salvos/SalvoSheetModel.h"

#include "Foundation/Text.h"
#include "Model/Naming.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

/// The numbers of the rows that are no salvo's.
enum Place { note = 1, mainHead, invitation, mainFoot, fullRouterHead, fullRouterFoot };

SalvoRow textRow(SalvoRow::Kind kind, Place place, const QString& text)
{
    SalvoRow row;
    row.kind = kind;
    row.number = place;
    row.text = text;
    return row;
}

} // namespace

SalvoSheetModel::SalvoSheetModel(SerialQueue& mainQueue)
    : SalvoListModel(mainQueue, SalvoDialogs::Place::sheet)
{
    // What a preview says is rows, so they come and go with the traffic.
    connect(diffs(), &SalvoDiffs::changed, this, [this](const QUuid& salvo) {
        if (m_expandedID == salvo && controller())
            setRows(makeRows());
    });
}

void SalvoSheetModel::setController(MatrixController* newController)
{
    if (newController == controller())
        return;
    m_expandedID.reset();
    m_renameConflict.reset();
    cancelRename();
    SalvoListModel::setController(newController);
}

QList<SalvoRow> SalvoSheetModel::makeRows()
{
    if (m_renaming) {
        m_renaming = salvo(m_renaming->id);
        if (!m_renaming)
            cancelRename();
    }
    const bool isEmpty = !controller()->activePanel() && controller()->salvos().isEmpty();
    QList<SalvoRow> rows;
    if (!isEmpty && !controller()->isConnected())
        rows.append(textRow(SalvoRow::Kind::note, note, u"Offline — salvos can be edited but not fired"_s));
    if (!isEmpty)
        rows += mainSection() + fullRouterSection();
    refreshContent(rows, isEmpty);
    return rows;
}

void SalvoSheetModel::refreshContent(const QList<SalvoRow>& rows, bool isEmpty)
{
    const auto count = [&](SalvoRow::Kind kind) {
        return static_cast<int>(std::ranges::count(rows, kind, &SalvoRow::kind));
    };
    const SalvoSheetContent content{.isEmpty = isEmpty,
        .salvos = count(SalvoRow::Kind::salvo),
        .previewLines = count(SalvoRow::Kind::preview),
        .sectionTexts = count(SalvoRow::Kind::head) + count(SalvoRow::Kind::foot),
        .notes = count(SalvoRow::Kind::note),
        .invitations = count(SalvoRow::Kind::invitation)};
    if (std::exchange(m_content, content) != content)
        emit contentChanged();
}

QList<SalvoRow> SalvoSheetModel::mainSection() const
{
    const auto panel = controller()->activePanel();
    const auto salvos = controller()->visibleSalvos();
    QList<SalvoRow> rows{textRow(SalvoRow::Kind::head, mainHead,
        panel ? u"%1 Salvos"_s.arg(text::oneLine(panel->name)) : u"Full Router Salvos"_s)};
    if (panel && salvos.isEmpty())
        rows.append(textRow(SalvoRow::Kind::invitation, invitation, salvoTexts::noneYet(*panel)));
    rows.append(salvoRows(salvos));
    if (!salvos.isEmpty())
        rows.append(textRow(SalvoRow::Kind::foot, mainFoot,
            panel ? u"Salvos here capture only this panel's destinations. Tap one to preview what firing it "
                    "would change."_s
                  : u"Tap a salvo to preview exactly what firing it would change."_s));
    return rows;
}

QList<SalvoRow> SalvoSheetModel::fullRouterSection() const
{
    const auto salvos = controller()->fullRouterSalvos();
    if (!controller()->activePanel() || salvos.isEmpty())
        return {};
    return QList{textRow(SalvoRow::Kind::head, fullRouterHead, u"Full Router"_s)} + salvoRows(salvos)
        + QList{textRow(
            SalvoRow::Kind::foot, fullRouterFoot, u"These fire the whole router, not just this panel."_s)};
}

QList<SalvoRow> SalvoSheetModel::salvoRows(const QList<Salvo>& salvos) const
{
    QList<SalvoRow> rows;
    for (const auto& salvo : salvos) {
        rows.append(rowFor(salvo));
        if (m_expandedID != salvo.id)
            continue;
        rows.last().isExpanded = true;
        rows.append(previewOf(salvo));
    }
    if (!rows.isEmpty())
        rows.last().isLast = true;
    return rows;
}

QList<SalvoRow> SalvoSheetModel::previewOf(const Salvo& salvo) const
{
    QList<SalvoRow> rows;
    for (const auto lines = salvoTexts::preview(salvo, diff(salvo), *controller());
         const auto& line : lines) {
        SalvoRow row;
        row.kind = SalvoRow::Kind::preview;
        row.id = salvo.id;
        row.number = static_cast<int>(rows.size()) + 1;
        row.preview = line;
        rows.append(row);
    }
    if (!rows.isEmpty())
        rows.last().isLast = true;
    return rows;
}

QVariant SalvoSheetModel::data(const QModelIndex& index, int role) const
{
    if (role != buttonsRole)
        return SalvoListModel::data(index, role);
    const auto shown = salvoAt(index.row());
    return shown ? toVariants(buttons()) : QVariantList();
}

QHash<int, QByteArray> SalvoSheetModel::roleNames() const
{
    auto names = SalvoListModel::roleNames();
    names.insert(buttonsRole, "buttons");
    return names;
}

QList<MenuAction> SalvoSheetModel::menu(int row)
{
    const auto salvo = salvoAt(row);
    if (!salvo)
        return {};
    auto update = updateAction(*salvo, u"Update from Current Routing"_s);
    const auto shown = look(*salvo);
    update.isEnabled = !shown.isInSync;
    QList<MenuAction> menu{renameAction(*salvo), update, deleteAction(*salvo, u"Delete"_s)};
    if (shown.canFire)
        menu.prepend(fireAction(*salvo));
    return menu;
}

QList<MenuAction> SalvoSheetModel::actions(int row)
{
    auto actions = menu(row);
    if (const auto salvo = salvoAt(row))
        actions.insert(look(*salvo).canFire ? 1 : 0, toggleAction(*salvo));
    return actions;
}

QList<MenuAction> SalvoSheetModel::buttons()
{
    return {{u"Rename"_s, u"pencil"_s, {}}, {u"Delete"_s, u"trash"_s, {}, Qt::Key_unknown, true}};
}

MenuAction SalvoSheetModel::renameAction(const Salvo& salvo)
{
    return {u"Rename"_s, u"pencil"_s, [this, id = salvo.id] { beginRename(id); }, Qt::Key_F2};
}

MenuAction SalvoSheetModel::toggleAction(const Salvo& salvo)
{
    return {m_expandedID == salvo.id ? u"Collapse"_s : u"Preview Changes"_s, {},
        [this, id = salvo.id] { toggle(id); }};
}

void SalvoSheetModel::press(int row)
{
    if (const auto pressed = salvoAt(row))
        toggle(pressed->id);
}

void SalvoSheetModel::toggle(const QUuid& id)
{
    m_expandedID = m_expandedID == id ? std::nullopt : std::optional(id);
    reload();
}

void SalvoSheetModel::setRenameDraft(const QString& draft)
{
    if (std::exchange(m_renameDraft, draft) != draft)
        emit contentChanged();
}

QString SalvoSheetModel::conflictMessage() const
{
    if (!m_renameConflict)
        return {};
    return u"A salvo named “%1” already exists."_s.arg(text::oneLine(*m_renameConflict));
}

void SalvoSheetModel::beginRename(const QUuid& id)
{
    m_renaming = salvo(id);
    m_renameDraft = m_renaming ? m_renaming->name : QString();
    emit contentChanged();
}

void SalvoSheetModel::commitRename()
{
    const auto renamed = m_renaming;
    const auto name = naming::entered(m_renameDraft);
    cancelRename();
    if (!renamed || !controller() || name.isEmpty() || name == renamed->name)
        return;
    if (!controller()->renameSalvo(*renamed, name))
        m_renameConflict = name;
    emit contentChanged();
}

void SalvoSheetModel::cancelRename()
{
    m_renaming.reset();
    m_renameDraft.clear();
    emit contentChanged();
}

void SalvoSheetModel::clearConflict()
{
    m_renameConflict.reset();
    emit contentChanged();
}

} // namespace corvane
