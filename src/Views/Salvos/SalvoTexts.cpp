#include "Views/Salvos/SalvoTexts.h"

#include "Foundation/Text.h"

#include <algorithm>

namespace corvane::salvoTexts {

using namespace Qt::StringLiterals;

namespace {

/// Beyond it a preview no longer helps anybody to decide.
constexpr qsizetype mostChanges = 12;
constexpr qsizetype mostNames = 3;

QList<qint64> inOrder(QSet<qint64>&& numbers)
{
    auto sorted = numbers.values();
    std::ranges::sort(sorted);
    return sorted;
}

QList<qint64> lockedDestinations(const SalvoDiff& diff)
{
    QSet<qint64> destinations;
    for (const auto& route : diff.locked)
        destinations.insert(route.destination);
    return inOrder(std::move(destinations));
}

const SubPanel* panelOf(const Salvo& salvo, const MatrixController& controller)
{
    const auto& panels = controller.panels();
    const auto found = std::ranges::find(panels, salvo.panelID, &SubPanel::id);
    return found == panels.cend() ? nullptr : &*found;
}

QString destinationName(qint64 destination, const MatrixController& controller)
{
    return text::oneLine(controller.destinationLabel(destination));
}

QString sourceName(qint64 source, const MatrixController& controller)
{
    return text::oneLine(controller.sourceLabel(source));
}

enum class Tone { plain, locked, warning };

SalvoPreviewLine sentence(const QString& text, Tone tone = Tone::plain)
{
    SalvoPreviewLine line;
    line.isLocked = tone == Tone::locked;
    line.isWarning = tone == Tone::warning;
    line.text = text;
    return line;
}

SalvoPreviewLine changeLine(const Route& route, const MatrixController& controller)
{
    const auto& state = controller.state();
    const auto live = state.source(route.destination, route.level);
    SalvoPreviewLine line;
    line.isChange = true;
    if (state.levels.size() > 1)
        line.level = text::oneLine(controller.levelName(route.level));
    line.destination = destinationName(route.destination, controller);
    line.source = sourceName(route.source, controller);
    if (live)
        line.before = u"was "_s + sourceName(*live, controller);
    QStringList parts{line.level, line.destination, u"←"_s, line.source, line.before};
    parts.removeAll(QString());
    line.text = parts.join(u' ');
    return line;
}

void addChanges(QList<SalvoPreviewLine>& lines, const SalvoDiff& diff, const MatrixController& controller)
{
    for (const auto& route : diff.changes.first(std::min(diff.changes.size(), mostChanges)))
        lines.append(changeLine(route, controller));
    if (diff.changes.size() > mostChanges)
        lines.append(sentence(u"+%1 more"_s.arg(diff.changes.size() - mostChanges)));
}

/// How many of the salvo's destinations its panel has lost since.
qint64 lostByPanel(const Salvo& salvo, const MatrixController& controller)
{
    const auto* const panel = panelOf(salvo, controller);
    if (!panel)
        return 0;
    QSet<qint64> destinations;
    for (const auto& route : salvo.routes)
        destinations.insert(route.destination);
    return destinations.subtract(QSet(panel->destinationIndices.cbegin(), panel->destinationIndices.cend()))
        .size();
}

QString changesSentence(const SalvoDiff& diff)
{
    const auto matching = diff.unchanged > 0 ? u" (%1 already match)"_s.arg(diff.unchanged) : QString();
    if (!diff.changes.isEmpty())
        return u"Changes %1%2."_s.arg(text::counted(diff.changes.size(), u"crosspoint"_s), matching);
    if (diff.unchanged > 0)
        return u"Routing already matches — firing re-asserts %1."_s.arg(
            text::counted(diff.unchanged, u"crosspoint"_s));
    return u"Nothing to fire — no route in this salvo applies right now."_s;
}

QString lockedSentence(const SalvoDiff& diff, const MatrixController& controller)
{
    const auto destinations = lockedDestinations(diff);
    if (destinations.isEmpty())
        return {};
    QStringList names;
    for (const auto destination : destinations.first(std::min(destinations.size(), mostNames)))
        names.append(destinationName(destination, controller));
    const auto others = destinations.size() - names.size();
    return u"Skipping %1%2 (locked)."_s.arg(
        names.join(u", "_s), others > 0 ? u" +%1 more"_s.arg(others) : QString());
}

QString missingSentence(const SalvoDiff& diff)
{
    if (diff.missing.isEmpty())
        return {};
    return u"%1 ignored."_s.arg(text::counted(diff.missing.size(), u"out-of-range route"_s));
}

QString scopeSentence(const Salvo& salvo, const MatrixController& controller)
{
    if (const auto* const panel = panelOf(salvo, controller))
        return u"Changes only destinations captured from “%1”."_s.arg(text::oneLine(panel->name));
    if (const auto active = controller.activePanel())
        return u"Fires on the full router, including ports hidden by “%1”."_s.arg(
            text::oneLine(active->name));
    return {};
}

} // namespace

bool isInSync(const SalvoDiff& diff)
{
    return diff.changes.isEmpty() && diff.lockedMismatched == 0 && diff.unchanged > 0;
}

bool canFire(const SalvoDiff& diff, const MatrixController& controller)
{
    return controller.isConnected() && (!diff.changes.isEmpty() || diff.unchanged > 0);
}

SalvoStatus status(const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller)
{
    SalvoStatus status;
    if (!controller.isConnected()) {
        status.text = text::counted(salvo.routes.size(), u"route"_s);
        return status;
    }
    if (const auto locked = lockedDestinations(diff).size())
        status.lockedCount = QString::number(locked);
    status.isActive = isInSync(diff);
    if (status.isActive)
        status.text = u"Active — matches current routing"_s;
    else if (diff.changes.isEmpty() && diff.lockedMismatched > 0)
        status.text = u"Differs only on locked destinations"_s;
    else
        status.text = text::counted(diff.changes.size(), u"change"_s);
    return status;
}

QList<SalvoPreviewLine> preview(const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller)
{
    QList<SalvoPreviewLine> lines;
    if (isInSync(diff))
        lines.append(sentence(u"Routing already matches this salvo."_s));
    addChanges(lines, diff, controller);
    for (const auto destination : lockedDestinations(diff))
        lines.append(
            sentence(destinationName(destination, controller) + u" — locked, will skip"_s, Tone::locked));
    if (!diff.missing.isEmpty())
        lines.append(sentence(u"%1 won't fit this router and will be ignored."_s.arg(
            text::counted(diff.missing.size(), u"route"_s))));
    if (diff.unchanged > 0 && !isInSync(diff))
        lines.append(sentence(u"%1 already match"_s.arg(diff.unchanged)));
    if (const auto lost = lostByPanel(salvo, controller))
        lines.append(sentence(
            u"%1 no longer on this panel — still fires."_s.arg(text::counted(lost, u"destination"_s)),
            Tone::warning));
    return lines;
}

QString fireTitle(const Salvo& salvo)
{
    return u"Fire “%1”?"_s.arg(text::oneLine(salvo.name));
}

QString fireMessage(const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller)
{
    if (!controller.isConnected())
        return u"Offline — salvos can be edited but not fired."_s;
    QStringList sentences{changesSentence(diff), lockedSentence(diff, controller), missingSentence(diff),
        scopeSentence(salvo, controller)};
    sentences.removeAll(QString());
    return sentences.join(u' ');
}

QString fireButton(const SalvoDiff& diff)
{
    if (!diff.changes.isEmpty())
        return u"Fire — %1"_s.arg(text::counted(diff.changes.size(), u"Change"_s));
    // In the plural whatever the number: as operators have always read it.
    return u"Fire — Re-assert %1 Routes"_s.arg(diff.unchanged);
}

SalvoLook look(const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller)
{
    const bool inSync = isInSync(diff);
    const auto name = text::oneLine(salvo.name);
    return {.status = status(salvo, diff, controller),
        .isInSync = inSync,
        .canFire = canFire(diff, controller),
        .fireName = u"Fire %1"_s.arg(name),
        .updateName = u"Update %1 from current routing"_s.arg(name),
        .updateTip = inSync ? u"Already matches the current routing"_s : u"Update from current routing"_s};
}

SalvoQuestion fireQuestion(const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller)
{
    return {.isShown = true,
        .title = fireTitle(salvo),
        .message = fireMessage(salvo, diff, controller),
        .acceptText = fireButton(diff),
        .canAccept = canFire(diff, controller)};
}

SalvoQuestion deleteQuestion(const Salvo& salvo)
{
    return {.isShown = true,
        .title = u"Delete “%1”?"_s.arg(text::oneLine(salvo.name)),
        .message = u"This salvo cannot be recovered."_s,
        .acceptText = u"Delete"_s};
}

SalvoQuestion updateQuestion(const Salvo& salvo)
{
    return {.isShown = true,
        .title = u"Update “%1”?"_s.arg(text::oneLine(salvo.name)),
        .message =
            u"Replaces its saved snapshot with the current routing. The old snapshot cannot be recovered."_s,
        .acceptText = u"Update"_s};
}

QString newSalvoMessage(const std::optional<SubPanel>& panel, bool countsDestinations)
{
    if (!panel)
        return u"Captures every destination's current source on all levels. "
               "Saving with an existing name updates that salvo."_s;
    const auto count = panel->destinationIndices.size();
    const auto destinations =
        countsDestinations ? u"%1 destinations, on all levels"_s.arg(count) : u"destinations"_s;
    return u"Captures the current source for each of “%1”'s %2. Firing changes only those destinations. "
           "Saving with a name already used on this panel updates that salvo."_s.arg(
               text::oneLine(panel->name), destinations);
}

QString newSalvoName(const QList<Salvo>& salvos)
{
    QSet<QString> taken;
    for (const auto& salvo : salvos)
        taken.insert(salvo.name.toLower());
    auto number = salvos.size() + 1;
    while (taken.contains(u"salvo %1"_s.arg(number)))
        ++number;
    return u"Salvo %1"_s.arg(number);
}

QString noneYet(const SubPanel& panel)
{
    return u"No salvos for “%1” yet"_s.arg(text::oneLine(panel.name));
}

} // namespace corvane::salvoTexts
