#include "Views/Grid/CrosspointGridModel.h"

#include "Theme/Tints.h"
#include "Views/Grid/GridFonts.h"
#include "Views/Shared/PortTexts.h"

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

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

CrosspointGridModel::CrosspointGridModel(const GlassKit& theme, QObject* parent)
    : ScreenModel(theme, parent),
      m_gap(theme.cellGap),
      m_actions(*this),
      m_sourceWidths(gridFonts::sourceLabel()),
      m_destinationWidths(gridFonts::destinationLabel())
{
    show({}, {});
}

void CrosspointGridModel::setController(MatrixController* newController)
{
    if (newController == controller())
        return;
    // Nothing that was shown of another controller stays in its place.
    show({}, {});
    ScreenModel::setController(newController);
    if (newController)
        observe(*newController);
}

void CrosspointGridModel::observe(const MatrixController& observed)
{
    using Controller = MatrixController;
    const auto row = [this](qint64 destination) {
        if (const auto position = rowOf(destination))
            emit rowChanged(*position);
    };
    connect(&observed, &Controller::stateReplaced, this, &ScreenModel::contentChanged);
    connect(&observed, &Controller::labelsChanged, this, &ScreenModel::contentChanged);
    connect(&observed, &Controller::lockChanged, this, row);
    connect(&observed, &Controller::crosspointChanged, this, [this, row](qint64 level, qint64 destination) {
        if (level == m_common.primaryLevel)
            row(destination);
    });
    connect(&observed, &Controller::inputStatusChanged, this, [this](qint64 input) {
        if (const auto position = columnOf(input))
            emit columnChanged(*position);
    });
    connect(&observed, &QObject::destroyed, this, [this] { show({}, {}); });
}

void CrosspointGridModel::refresh()
{
    const bool isDifferent = std::exchange(m_common, common()) != m_common;
    const auto& sources = controller()->visibleSources();
    const auto& destinations = controller()->visibleDestinations();
    if (m_sources != sources || m_destinations != destinations)
        show(sources, destinations);
    else if (isDifferent)
        emit contentChanged();
}

CrosspointGridModel::Common CrosspointGridModel::common() const
{
    const auto destination = controller()->pendingDestination();
    return {
        .palette = &palette(),
        .tint = levelTint(controller()->state(), controller()->primaryLevel(), palette()),
        .primaryLevel = controller()->primaryLevel(),
        .pendingDestination = destination,
        .armedSource = destination ? controller()->pendingSource() : std::nullopt,
        .panelActive = controller()->activePanel().has_value(),
    };
}

void CrosspointGridModel::show(const QList<Port>& sources, const QList<Port>& destinations)
{
    const bool isAtPlace =
        arePortsAtTheirPlaces(m_sources, sources) && arePortsAtTheirPlaces(m_destinations, destinations);
    m_sources = sources;
    m_destinations = destinations;
    m_columnOf = positions(sources);
    m_rowOf = positions(destinations);

    // Room for the number, the lock and the inner padding beside the label; room for the number and the
    // signal dot under it.
    m_destWidth = std::clamp(m_destinationWidths.widest(destinations) + 72, 138, 260);
    m_headerHeight = std::clamp(m_sourceWidths.widest(sources) + 44, 104, 230);

    if (isAtPlace)
        emit contentChanged();
    else
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

bool CrosspointGridModel::hoverEnabled() const
{
    return hoverCellLimit >= m_sources.size() * m_destinations.size();
}

GridRowView CrosspointGridModel::row(int position) const
{
    GridRowView row;
    row.dest = m_destinations.at(position);
    row.sources = m_sources;
    if (!controller())
        return row;

    const RouterState& state = controller()->state();
    row.routedSource = state.source(row.dest.index, m_common.primaryLevel);
    row.routedLabel = routedLabel(row.routedSource);
    row.offPanelFeed = m_common.panelActive && row.routedSource && !columnOf(*row.routedSource);
    row.locked = state.isLocked(row.dest.index);
    row.isPendingDest = m_common.pendingDestination == row.dest.index;
    row.armedSource = m_common.armedSource;
    return row;
}

QString CrosspointGridModel::routedLabel(std::optional<qint64> source) const
{
    return portTexts::labelAt(controller()->state().sources, source).value_or(portTexts::noName());
}

SourceColumnHeader CrosspointGridModel::column(int position) const
{
    SourceColumnHeader header;
    header.source = m_sources.at(position);
    header.isArmed = armedSource() == header.source.index;
    if (hasSignalStatus(header.source.index))
        header.signalPresent = controller()->state().inputStatus.value(header.source.index).present;
    return header;
}

bool CrosspointGridModel::hasSignalStatus(qint64 source) const
{
    return controller() && controller()->state().inputStatus.contains(source);
}

QString CrosspointGridModel::signalHelp(qint64 source) const
{
    const auto signal = controller() ? portTexts::signal(controller()->state(), source) : std::nullopt;
    if (!signal)
        return u"Double-click to rename"_s;
    const InputSignalStatus status = controller()->state().inputStatus.value(source);
    return status.present && status.format ? u"Signal: "_s + *signal : *signal;
}

QString CrosspointGridModel::toolTip(GridPlace place) const
{
    if (place.isColumnHeader())
        return signalHelp(m_sources.at(place.column).index);
    return place.isRowHeader() ? u"Double-click to rename"_s : QString();
}

} // namespace corvane
