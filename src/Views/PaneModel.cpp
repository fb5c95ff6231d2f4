#include "Views/PaneModel.h"

#include "Theme/Tints.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

// What may change any row.
constexpr std::array signalsOfAll{&MatrixController::stateReplaced, &MatrixController::visiblePortsChanged,
    &MatrixController::labelsChanged, &MatrixController::primaryLevelChanged,
    &MatrixController::takeModeChanged, &MatrixController::routingDirectionChanged,
    &MatrixController::selectionChanged, &MatrixController::stagingChanged,
    &MatrixController::multiSelectModeChanged};

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

PaneModel::PaneModel(PortKind kind, QObject* parent)
    : QAbstractListModel(parent), m_kind(kind), m_palette(&GlassPalette::dark())
{
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
        connect(newController, &QObject::destroyed, this, [this] {
            m_controller.clear();
            refresh();
        });
        observe(*newController);
    }
    refresh();
}

void PaneModel::setPalette(const GlassPalette& palette)
{
    m_palette = &palette;
    refreshHeader();
}

int PaneModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant PaneModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const auto& row = m_rows.at(index.row());
    if (role == rowRole)
        return QVariant::fromValue(row);
    return role == Qt::DisplayRole ? QVariant(row.title) : QVariant();
}

QHash<int, QByteArray> PaneModel::roleNames() const
{
    return {{rowRole, "row"}};
}

std::optional<int> PaneModel::positionOf(qint64 port) const
{
    const auto found = m_positions.constFind(port);
    return found == m_positions.cend() ? std::nullopt : std::optional(*found);
}

std::optional<qint64> PaneModel::portAt(int position) const
{
    if (!m_controller || position < 0 || position >= m_rows.size())
        return std::nullopt;
    return m_rows.at(position).index;
}

int PaneModel::startPosition() const
{
    const auto current = std::ranges::find(m_rows, true, &SelectableRow::isCurrent);
    return current == m_rows.cend() ? 0 : static_cast<int>(current - m_rows.cbegin());
}

qsizetype PaneModel::currentCount() const
{
    return std::ranges::count(m_rows, true, &SelectableRow::isCurrent);
}

void PaneModel::click(int position)
{
    perform(PortAction::Kind::press, position);
}

void PaneModel::doubleClick(int position)
{
    if (m_controller && clickToggles(*m_controller))
        click(position);
    perform(PortAction::Kind::rename, position);
}

void PaneModel::clickBadge(int position)
{
    perform(PortAction::Kind::toggleInGang, position);
}

void PaneModel::perform(PortAction::Kind kind, int position)
{
    const auto port = portAt(position);
    if (!port)
        return;
    switch (kind) {
    case PortAction::Kind::press:
        clickPort(*m_controller, *port);
        return;
    case PortAction::Kind::toggleInGang:
        if (m_rows.at(position).hasBadge)
            m_controller->toggleDestinationInGang(*port);
        return;
    case PortAction::Kind::rename:
        m_controller->beginRename(m_kind, *port);
        return;
    case PortAction::Kind::toggleLock:
        if (m_kind == PortKind::destination)
            m_controller->toggleLock(*port);
        return;
    case PortAction::Kind::routeToSelectedDestination:
        return;
    }
}

void PaneModel::performHeaderAction(int position)
{
    if (m_controller && position >= 0 && position < m_content.headerActions.size())
        m_content.headerActions.at(position).action(*m_controller);
}

QList<PortAction> PaneModel::menu(int position) const
{
    const auto port = portAt(position);
    return port ? portMenu(*m_controller, {m_kind, *port}) : QList<PortAction>();
}

QList<PortAction> PaneModel::accessibleActions(int position) const
{
    auto actions = menu(position);
    if (!actions.isEmpty() && m_rows.at(position).hasBadge)
        actions.prepend({PortAction::Kind::toggleInGang, m_rows.at(position).badgeName(), {}});
    return actions;
}

PaneHeaderFit PaneModel::headerFit(const PaneContent& content, double width, double title, double subtitle,
    double count, double labelledActions, double iconActions) const
{
    return fitPaneHeader({.title = title,
                             .subtitle = subtitle,
                             .count = count,
                             .labelledActions = labelledActions,
                             .iconActions = iconActions,
                             .subtitleIsPriority = content.subtitleIsPriority},
        width);
}

void PaneModel::refresh()
{
    adoptPorts(m_controller ? shownPorts(*m_controller) : QList<Port>());
    refreshRows();
    refreshHeader();
}

void PaneModel::adoptPorts(const QList<Port>& ports)
{
    const auto [row, port] =
        std::ranges::mismatch(std::as_const(m_rows), ports, {}, &SelectableRow::index, &Port::index);
    if (row == m_rows.cend() && port == ports.cend())
        return;
    // The rows before the first difference stay, and with them the place to which the list is scrolled.
    const auto same = static_cast<int>(row - m_rows.cbegin());
    removeRowsFrom(same);
    appendRows(ports.mid(same));
}

void PaneModel::removeRowsFrom(int position)
{
    if (position == m_rows.size())
        return;
    beginRemoveRows({}, position, static_cast<int>(m_rows.size()) - 1);
    for (const auto& row : m_rows.sliced(position))
        m_positions.remove(row.index);
    m_rows.resize(position);
    endRemoveRows();
}

void PaneModel::appendRows(const QList<Port>& ports)
{
    if (ports.isEmpty())
        return;
    const auto first = static_cast<int>(m_rows.size());
    beginInsertRows({}, first, first + static_cast<int>(ports.size()) - 1);
    m_rows.reserve(first + ports.size());
    for (const auto& port : ports) {
        m_positions.insert(port.index, static_cast<int>(m_rows.size()));
        m_rows.append(makeRow(*m_controller, port));
    }
    endInsertRows();
}

void PaneModel::refreshRows()
{
    if (!m_controller)
        return;
    const auto& ports = shownPorts(*m_controller);
    QList<int> changed;
    for (int position = 0; position < m_rows.size(); ++position) {
        auto row = makeRow(*m_controller, ports.at(position));
        if (row == m_rows.at(position))
            continue;
        m_rows[position] = std::move(row);
        changed.append(position);
    }
    for (const int position : changed)
        emit dataChanged(index(position), index(position), {rowRole, Qt::DisplayRole});
}

void PaneModel::refreshPort(qint64 port)
{
    const auto position = positionOf(port);
    if (!position || !m_controller)
        return;
    const auto& ports = shownPorts(*m_controller);
    // Other ports than ours are about to be told of, and then all rows are looked at.
    if (*position >= ports.size() || ports.at(*position).index != port)
        return;
    const auto row = makeRow(*m_controller, ports.at(*position));
    const auto before = std::exchange(m_rows[*position], row);
    if (row == before)
        return;
    emit dataChanged(index(*position), index(*position), {rowRole, Qt::DisplayRole});
    // What the header counts.
    if (row.isCurrent != before.isCurrent || row.locked != before.locked)
        refreshHeader();
}

void PaneModel::refreshHeader()
{
    PaneContent content;
    content.title = m_kind == PortKind::source ? QStringLiteral("Sources") : QStringLiteral("Destinations");
    content.count = rowCount();
    const auto largest = std::ranges::max_element(m_rows, {}, &SelectableRow::index);
    content.widestNumber = widestNumber(largest == m_rows.cend() ? 0 : largest->index + 1);
    if (m_controller) {
        content.tint = levelTint(m_controller->state(), m_controller->primaryLevel(), *m_palette);
        tellHeader(*m_controller, content);
    }
    if (content == m_content)
        return;
    m_content = content;
    emit contentChanged();
}

} // namespace corvane
