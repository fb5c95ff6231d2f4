#include "Views/Bar/ControlBarModel.h"

#include "Theme/Contrast.h"
#include "Theme/Tints.h"
#include "Views/Shared/PortTexts.h"

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString label(const QList<Port>& ports, qint64 position)
{
    return portTexts::labelAt(ports, position).value_or(portTexts::noName());
}

QString targets(const QList<qint64>& destinations, const RouterState& state)
{
    if (destinations.size() == 1)
        return u"→ %1"_s.arg(label(state.destinations, destinations.front()));
    return u"→ %1 destinations"_s.arg(destinations.size());
}

/// Empty if nothing that is staged is locked.
QString lockedText(const MatrixController& controller)
{
    const auto locked = controller.lockedPendingDestinations();
    if (locked.isEmpty())
        return {};
    auto staged = controller.pendingDestinations();
    if (const auto one = controller.pendingDestination())
        staged.insert(*one);
    if (staged.size() == 1)
        return controller.lockMessage(locked.front());
    QStringList names;
    for (const auto destination : locked)
        names.append(label(controller.state().destinations, destination));
    return u"→ %1 of %2, locked: %3"_s.arg(
        QString::number(staged.size() - locked.size()), QString::number(staged.size()), names.join(u", "_s));
}

QString hint(RoutingDirection direction)
{
    return direction == RoutingDirection::sourceLed ? u"Tap destinations to stage"_s : u"Stage a route"_s;
}

} // namespace

bool ControlBar::hasContent(const MatrixController& controller, bool compactWidth)
{
    return compactWidth || controller.state().levels.size() > 1
        || controller.viewMode() == RouteViewMode::matrix || controller.takeMode() == TakeMode::confirm;
}

ControlBarModel::ControlBarModel(const GlassKit& theme, MatrixZoom& zoom, QObject* parent)
    : ScreenModel(theme, parent), m_zoom(zoom)
{
}

void ControlBarModel::setController(MatrixController* newController)
{
    if (newController)
        m_primaryLevel = newController->primaryLevel();
    ScreenModel::setController(newController);
}

void ControlBarModel::chooseLevel(int position)
{
    if (!controller())
        return;
    const auto& levels = controller()->state().levels;
    if (position >= 0 && position < levels.size())
        controller()->setPrimaryLevel(levels.at(position).index);
}

void ControlBarModel::toggleFollow()
{
    if (!controller())
        return;
    const bool follows = controller()->breakawayLevels().isEmpty();
    controller()->setBreakawayLevels(follows ? QSet{controller()->primaryLevel()} : QSet<qint64>{});
}

void ControlBarModel::clearPending()
{
    if (controller())
        controller()->clearPending();
}

void ControlBarModel::confirmTake()
{
    if (controller())
        controller()->confirmTake();
}

/// Breakaway follows the level that is shown.
void ControlBarModel::keepBreakawayOnPrimaryLevel()
{
    const auto level = controller()->primaryLevel();
    if (std::exchange(m_primaryLevel, level) != level && !controller()->breakawayLevels().isEmpty())
        controller()->setBreakawayLevels({level});
}

void ControlBarModel::refresh()
{
    keepBreakawayOnPrimaryLevel();
    ControlBarContent content;
    content.isShown = ControlBar::hasContent(*controller(), false);
    content.showsZoom = controller()->viewMode() == RouteViewMode::matrix;
    tellLevels(content);
    tellStaging(content);
    content.dividesZoom = content.showsZoom && content.showsLevels;
    content.dividesTake = content.showsTake && (content.showsLevels || content.showsZoom);
    replace(m_content, content);
}

void ControlBarModel::tellLevels(ControlBarContent& content) const
{
    const auto& state = controller()->state();
    content.showsLevels = state.levels.size() >= 2;
    for (const auto& level : state.levels)
        content.levels.append(level.name);
    const auto shown = std::ranges::find(state.levels, controller()->primaryLevel(), &RouterLevel::index);
    if (shown != state.levels.cend())
        content.level = static_cast<int>(shown - state.levels.cbegin());

    const bool follows = controller()->breakawayLevels().isEmpty();
    content.followText = follows ? u"Follow"_s : u"Breakaway"_s;
    content.followSymbol = follows ? u"link"_s : u"scissors"_s;
    content.followTint = follows
        ? palette().secondary
        : tintText(levelTint(state, controller()->primaryLevel(), palette()), palette());
}

void ControlBarModel::tellStaging(ControlBarContent& content) const
{
    const auto pending = controller()->pendingTake();
    content.showsTake = controller()->takeMode() == TakeMode::confirm;
    content.canTake = pending.has_value();
    content.canClear = controller()->hasStaging();
    content.lockedText = lockedText(*controller());
    if (!pending) {
        if (content.lockedText.isEmpty())
            content.emptyHint = hint(controller()->routingDirection());
        return;
    }
    const auto& state = controller()->state();
    content.stagedSource = label(state.sources, pending->source);
    content.targetText = targets(pending->destinations, state);
}

} // namespace corvane
