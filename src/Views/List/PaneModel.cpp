#include "Views/List/PaneModel.h"

#include "Theme/Tints.h"
#include "Views/Shared/PortActions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

// What may change any row.
constexpr std::array signalsOfAll{&MatrixController::stateReplaced, &MatrixController::visiblePortsChanged,
    &MatrixController::labelsChanged};

/// A text as wide as the widest of the numbers up to `largest`.
QString widestNumber(qint64 largest)
{
    return {QString::number(largest).size(), u'8'};
}

} // namespace

bool isSourceLed(const MatrixController& controller)
{
    return controller.routingDirection() == RoutingDirection::sourceLed;
}

PaneModel::PaneModel(PortKind kind, PaneClicks& clicks, const GlassKit& theme)
    : m_kind(kind), m_clicks(clicks), m_theme(theme)
{
    connect(&theme, &GlassKit::paletteChanged, this, &PaneModel::refreshHeader);
    connect(&clicks, &PaneClicks::heldChanged, this, [this](const PortRef& port) {
        if (port.kind == m_kind)
            refreshPort(port.index);
    });
}

void PaneModel::setController(MatrixController* newController)
{
    if (newController == m_controller)
        return;
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = newController;
    if (newController) {
        for (const auto signal : signalsOfAll)
            connect(newController, signal, this, &PaneModel::refresh);
        connect(newController, &MatrixController::changed, this,
            [this, shown = newController->operatorState()]() mutable {
                if (std::exchange(shown, m_controller->operatorState()) != m_controller->operatorState())
                    refresh();
            });
        connect(newController, &QObject::destroyed, this, [this] {
            m_controller.clear();
            refresh();
        });
        observe(*newController);
    }
    refresh();
}

QVariant PaneModel::data(const QModelIndex& index, int role) const
{
    const auto* const row = rowAt(index.row());
    if (!row)
        return {};
    if (role == rowRole)
        return QVariant::fromValue(*row);
    return role == Qt::DisplayRole ? QVariant(row->title) : QVariant();
}

QHash<int, QByteArray> PaneModel::roleNames() const
{
    return {{rowRole, "row"}};
}

RowSpeech PaneModel::speech(int row) const
{
    const auto* const shown = rowAt(row);
    if (!shown)
        return {};
    return {.name = shown->accessibleName(),
        .description = shown->accessibleHelp(),
        .help = shown->accessibleHelp(),
        .role = QAccessible::Button,
        .isSelectable = true,
        .isSelected = shown->isCurrent};
}

int PaneModel::startRow() const
{
    const auto current = std::ranges::find(rows(), true, &SelectableRow::isCurrent);
    return current == rows().cend() ? 0 : static_cast<int>(current - rows().cbegin());
}

qsizetype PaneModel::currentCount() const
{
    return std::ranges::count(rows(), true, &SelectableRow::isCurrent);
}

QList<MenuAction> PaneModel::menu(int row)
{
    const auto* const shown = rowAt(row);
    return shown && m_controller ? portMenu(*m_controller, {m_kind, shown->index}) : QList<MenuAction>();
}

QList<MenuAction> PaneModel::actions(int row)
{
    auto actions = menu(row);
    const auto* const shown = rowAt(row);
    if (shown && m_controller && shown->hasBadge)
        actions.prepend({shown->badgeName(), {},
            [controller = m_controller, port = shown->index] { controller->toggleDestinationInGang(port); }});
    return actions;
}

void PaneModel::press(int row)
{
    m_clicks.settle();
    if (const auto* const shown = rowAt(row); shown && m_controller)
        clickPort(*m_controller, shown->index);
}

void PaneModel::click(int row)
{
    const auto* const shown = rowAt(row);
    if (!shown || !m_controller)
        return;
    const PortRef port{m_kind, shown->index};
    if (const auto routed = sending(*m_controller, port.index))
        m_clicks.hold(*m_controller, port, routed->source, routed->destinations);
    else
        m_clicks.act(*m_controller, port, [&] { clickPort(*m_controller, port.index); });
}

void PaneModel::doubleClick(int row)
{
    const auto* const shown = rowAt(row);
    if (!shown || !m_controller)
        return;
    const PortRef port{m_kind, shown->index};
    if (m_clicks.takeBack(port))
        m_controller->beginRename(m_kind, port.index);
}

void PaneModel::clickBadge(int row)
{
    m_clicks.settle();
    const auto* const shown = rowAt(row);
    if (shown && m_controller && shown->hasBadge)
        m_controller->toggleDestinationInGang(shown->index);
}

void PaneModel::performHeaderAction(int position)
{
    m_clicks.settle();
    if (position < 0 || position >= m_content.headerActions.size())
        return;
    // A copy: the header follows what its action does.
    const auto action = m_content.headerActions.at(position);
    action.run();
}

SelectableRow PaneModel::rowFor(const Port& port) const
{
    auto row = makeRow(*m_controller, port);
    row.isHeld = m_clicks.held() == PortRef{m_kind, port.index};
    return row;
}

void PaneModel::refresh()
{
    QList<SelectableRow> rows;
    if (m_controller) {
        const auto& ports = shownPorts(*m_controller);
        rows.reserve(ports.size());
        for (const auto& port : ports)
            rows.append(rowFor(port));
    }
    setRows(rows);
    refreshHeader();
}

void PaneModel::refreshPort(qint64 port)
{
    const auto position = rowOf(port);
    if (!position || !m_controller)
        return;
    const auto& ports = shownPorts(*m_controller);
    // Other ports than ours are about to be told of, and then all rows are looked at.
    if (*position >= ports.size() || ports.at(*position).index != port)
        return;
    const auto row = rowFor(ports.at(*position));
    const auto before = rows().at(*position);
    setRow(*position, row);
    // What the header counts.
    if (row.isCurrent != before.isCurrent || row.locked != before.locked)
        refreshHeader();
}

void PaneModel::refreshHeader()
{
    PaneContent content;
    content.title = m_kind == PortKind::source ? u"Sources"_s : u"Destinations"_s;
    content.count = rowCount();
    const auto largest = std::ranges::max_element(rows(), {}, &SelectableRow::index);
    content.widestNumber = widestNumber(largest == rows().cend() ? 0 : largest->index + 1);
    if (m_controller) {
        content.tint = levelTint(m_controller->state(), m_controller->primaryLevel(), m_theme.palette());
        fillHeader(*m_controller, content);
    }
    // What an equal action does may be another controller's.
    const bool isSame = content == m_content;
    m_content = content;
    if (!isSame)
        emit contentChanged();
}

} // namespace corvane
