#include "Views/CrosspointGridModel.h"

#include "Theme/Tints.h"
#include "Views/GridFonts.h"
#include "Views/PortTexts.h"

#include <algorithm>

namespace corvane {

namespace {

QHash<qint64, int> positions(const QList<Port>& ports)
{
    QHash<qint64, int> result;
    result.reserve(ports.size());
    for (int position = 0; const Port& port : ports)
        result.insert(port.index, position++);
    return result;
}

std::optional<int> find(const QHash<qint64, int>& positions, qint64 index)
{
    const auto found = positions.constFind(index);
    return found == positions.cend() ? std::nullopt : std::optional(*found);
}

bool arePortsAtTheirPlaces(const QList<Port>& before, const QList<Port>& now)
{
    return std::ranges::equal(before, now, {}, &Port::index, &Port::index);
}

} // namespace

CrosspointGridModel::CrosspointGridModel(QObject* parent)
    : QObject(parent),
      m_palette(&GlassPalette::dark()),
      m_sourceWidths(gridFonts::sourceLabel()),
      m_destinationWidths(gridFonts::destinationLabel())
{
    reloadPorts();
}

void CrosspointGridModel::setController(MatrixController* controller)
{
    if (m_controller == controller)
        return;
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = controller;
    if (controller)
        observe(*controller);
    reloadPorts();
    emit portsChanged();
}

void CrosspointGridModel::observe(MatrixController& controller)
{
    using Controller = MatrixController;
    const auto looks = [this] { emit looksChanged(); };
    const auto row = [this](qint64 destination) {
        if (const auto position = rowOf(destination))
            emit rowChanged(*position);
    };
    const auto ports = [this] { reloadPorts(); };
    connect(&controller, &Controller::stateReplaced, this, ports);
    connect(&controller, &Controller::visiblePortsChanged, this, ports);
    connect(&controller, &Controller::labelsChanged, this, ports);
    connect(&controller, &Controller::stagingChanged, this, looks);
    connect(&controller, &Controller::primaryLevelChanged, this, looks);
    connect(&controller, &Controller::activePanelChanged, this, ports);
    connect(&controller, &Controller::lockChanged, this, row);
    connect(&controller, &Controller::crosspointChanged, this, [this, row](qint64 level, qint64 destination) {
        if (level == m_controller->primaryLevel())
            row(destination);
    });
    connect(&controller, &Controller::inputStatusChanged, this, [this](qint64 input) {
        if (const auto position = columnOf(input))
            emit columnChanged(*position);
    });
    connect(&controller, &QObject::destroyed, this, [this] {
        m_controller.clear();
        reloadPorts();
    });
}

void CrosspointGridModel::reloadPorts()
{
    const QList<Port> sourcesBefore = m_sources;
    const QList<Port> destinationsBefore = m_destinations;
    m_sources = m_controller ? m_controller->visibleSources() : QList<Port>();
    m_destinations = m_controller ? m_controller->visibleDestinations() : QList<Port>();
    m_columnOf = positions(m_sources);
    m_rowOf = positions(m_destinations);

    // Room for the number, the lock and the inner padding beside the label; room for the number and the
    // signal dot under it.
    m_destWidth = std::clamp(m_destinationWidths.widest(m_destinations) + 72, 138, 260);
    m_headerHeight = std::clamp(m_sourceWidths.widest(m_sources) + 44, 104, 230);

    const bool isAtPlace = arePortsAtTheirPlaces(sourcesBefore, m_sources)
        && arePortsAtTheirPlaces(destinationsBefore, m_destinations);
    if (isAtPlace)
        emit looksChanged();
    else
        emit portsChanged();
}

void CrosspointGridModel::setPalette(const GlassPalette& palette)
{
    if (m_palette == &palette)
        return;
    m_palette = &palette;
    emit looksChanged();
}

void CrosspointGridModel::setHoverCellLimit(qint64 limit)
{
    if (m_hoverCellLimit == limit)
        return;
    m_hoverCellLimit = limit;
    emit portsChanged();
}

std::optional<int> CrosspointGridModel::rowOf(qint64 destination) const
{
    return find(m_rowOf, destination);
}

std::optional<int> CrosspointGridModel::columnOf(qint64 source) const
{
    return find(m_columnOf, source);
}

QColor CrosspointGridModel::tint() const
{
    return m_controller ? levelTint(m_controller->state(), m_controller->primaryLevel(), *m_palette)
                        : m_palette->accent;
}

bool CrosspointGridModel::hoverEnabled() const
{
    return m_hoverCellLimit >= m_sources.size() * m_destinations.size();
}

std::optional<qint64> CrosspointGridModel::armedSource() const
{
    if (!m_controller || !m_controller->pendingDestination())
        return std::nullopt;
    return m_controller->pendingSource();
}

GridRowView CrosspointGridModel::row(int position) const
{
    GridRowView row;
    row.dest = m_destinations.at(position);
    row.sources = m_sources;
    if (!m_controller)
        return row;

    const RouterState& state = m_controller->state();
    row.routedSource = state.source(row.dest.index, m_controller->primaryLevel());
    row.routedLabel = routedLabel(row.routedSource);
    row.offPanelFeed = m_controller->activePanel() && row.routedSource && !columnOf(*row.routedSource);
    row.locked = state.isLocked(row.dest.index);
    row.isPendingDest = m_controller->pendingDestination() == row.dest.index;
    row.armedSource = armedSource();
    return row;
}

QString CrosspointGridModel::routedLabel(std::optional<qint64> source) const
{
    return portTexts::labelAt(m_controller->state().sources, source).value_or(portTexts::noName());
}

SourceColumnHeader CrosspointGridModel::column(int position) const
{
    SourceColumnHeader header;
    header.source = m_sources.at(position);
    header.isArmed = armedSource() == header.source.index;
    if (hasSignalStatus(header.source.index))
        header.signalPresent = m_controller->state().inputStatus.value(header.source.index).present;
    return header;
}

bool CrosspointGridModel::hasSignalStatus(qint64 source) const
{
    return m_controller && m_controller->state().inputStatus.contains(source);
}

QString CrosspointGridModel::signalHelp(qint64 source) const
{
    const auto signal = m_controller ? portTexts::signal(m_controller->state(), source) : std::nullopt;
    if (!signal)
        return QStringLiteral("Double-click to rename");
    const InputSignalStatus status = m_controller->state().inputStatus.value(source);
    return status.present && status.format ? QStringLiteral("Signal: ") + *signal : *signal;
}

QString CrosspointGridModel::toolTip(GridPlace place) const
{
    if (place.isColumnHeader())
        return signalHelp(m_sources.at(place.column).index);
    return place.isRowHeader() ? QStringLiteral("Double-click to rename") : QString();
}

} // namespace corvane
