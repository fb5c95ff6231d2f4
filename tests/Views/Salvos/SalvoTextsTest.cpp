#include "Views/Salvos/SalvoTexts.h"
#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using SalvoTextsTest = ControllerTest;

/// Routes on this level to destinations `from` to `to`, the last one included, from the source that follows
/// each.
QList<Route> routes(qint64 from, qint64 to, qint64 level = 0)
{
    QList<Route> list;
    for (qint64 destination = from; destination <= to; ++destination)
        list.append({level, destination, destination + 1});
    return list;
}

Salvo salvo(std::optional<QUuid> panelID)
{
    Salvo salvo;
    salvo.routes = routes(0, 3);
    salvo.panelID = panelID;
    return salvo;
}

QString textOf(const QList<SalvoPreviewLine>& lines)
{
    QStringList texts;
    for (const auto& line : lines)
        texts.append((line.isChange           ? u"* "_s
                             : line.isLocked  ? u"# "_s
                             : line.isWarning ? u"! "_s
                                              : u""_s)
            + line.text);
    return texts.join(u'\n');
}

QString textOf(const SalvoStatus& status)
{
    return (status.isActive ? u"✓ "_s : u""_s) + status.text
        + (status.lockedCount.isEmpty() ? u""_s : u" # "_s + status.lockedCount);
}

TEST_F(SalvoTextsTest, WordsEachDiff)
{
    auto state = matrix(20, 20, 2);
    state.routing[0].remove(9);
    state.destinations[3].label = u"Mon\nitor"_s;
    connectTo(state);
    const SubPanel studio{.name = u"Studio"_s, .sourceIndices = {0}, .destinationIndices = {0, 1}};
    controller->savePanel(studio);
    const auto whole = salvo({});
    const auto ofPanel = salvo(studio.id);
    const auto orphan = salvo(QUuid::createUuid());

    struct Case {
        const char* name;
        const Salvo& salvo;
        /// changes, unchanged, locked, lockedMismatched, missing
        SalvoDiff diff;
        QString status;
        QString preview;
        /// What the dialog says, and after a bar the button where there is one.
        QString question;
        bool isPanelActive = false;
    };
    const Case cases[] = {
        {"nothing at all", whole, {}, u"0 changes"_s, {},
            u"Nothing to fire — no route in this salvo applies right now."_s},
        {"only routes that don't fit", whole, {{}, 0, {}, 0, routes(40, 40)}, u"0 changes"_s,
            u"1 route won't fit this router and will be ignored."_s,
            u"Nothing to fire — no route in this salvo applies right now. 1 out-of-range route ignored."_s},
        {"one that matches", whole, {{}, 1, {}, 0, {}}, u"✓ Active — matches current routing"_s,
            u"Routing already matches this salvo."_s,
            u"Routing already matches — firing re-asserts 1 crosspoint. | Fire — Re-assert 1 Routes"_s},
        {"all match, some locked, some don't fit", whole, {{}, 5, routes(4, 4), 0, routes(40, 41)},
            u"✓ Active — matches current routing # 1"_s,
            u"Routing already matches this salvo.\n# Out 5 — locked, will skip\n"
            "2 routes won't fit this router and will be ignored."_s,
            u"Routing already matches — firing re-asserts 5 crosspoints. Skipping Out 5 (locked). "
            "2 out-of-range routes ignored. | Fire — Re-assert 5 Routes"_s},
        {"one change", whole, {routes(1, 1), 0, {}, 0, {}}, u"1 change"_s,
            u"* Level 0 Out 2 ← In 3 was In 2"_s, u"Changes 1 crosspoint. | Fire — 1 Change"_s},
        {"changes, one from nobody knows where, and some that match", whole,
            {{{0, 9, 1}, {1, 3, 19}}, 1, {}, 0, {}}, u"2 changes"_s,
            u"* Level 0 Out 10 ← In 2\n* Level 1 Mon itor ← In 20 was In 4\n1 already match"_s,
            u"Changes 2 crosspoints (1 already match). | Fire — 2 Changes"_s},
        {"twelve changes", whole, {QList<Route>(12, {0, 1, 2}), 0, {}, 0, {}}, u"12 changes"_s,
            QStringList(12, u"* Level 0 Out 2 ← In 3 was In 2"_s).join(u'\n'),
            u"Changes 12 crosspoints. | Fire — 12 Changes"_s},
        {"thirteen changes", whole, {QList<Route>(13, {0, 1, 2}), 0, {}, 0, {}}, u"13 changes"_s,
            (QStringList(12, u"* Level 0 Out 2 ← In 3 was In 2"_s) << u"+1 more"_s).join(u'\n'),
            u"Changes 13 crosspoints. | Fire — 13 Changes"_s},
        {"only locked destinations differ", whole, {{}, 0, routes(2, 2), 1, {}},
            u"Differs only on locked destinations # 1"_s, u"# Out 3 — locked, will skip"_s,
            u"Nothing to fire — no route in this salvo applies right now. Skipping Out 3 (locked)."_s},
        {"only locked destinations differ, and one matches", whole, {{}, 1, routes(2, 2), 1, {}},
            u"Differs only on locked destinations # 1"_s, u"# Out 3 — locked, will skip\n1 already match"_s,
            u"Routing already matches — firing re-asserts 1 crosspoint. Skipping Out 3 (locked). | "
            "Fire — Re-assert 1 Routes"_s},
        {"locked on two levels, counted once, in the order of the router", whole,
            {routes(1, 1), 0, QList<Route>{{0, 6, 1}, {0, 3, 1}, {1, 6, 1}}, 3, {}}, u"1 change # 2"_s,
            u"* Level 0 Out 2 ← In 3 was In 2\n# Mon itor — locked, will skip\n# Out 7 — locked, will skip"_s,
            u"Changes 1 crosspoint. Skipping Mon itor, Out 7 (locked). | Fire — 1 Change"_s},
        {"three locked", whole, {{}, 2, routes(4, 6), 0, {}}, u"✓ Active — matches current routing # 3"_s,
            u"Routing already matches this salvo.\n# Out 5 — locked, will skip\n# Out 6 — locked, will skip\n"
            "# Out 7 — locked, will skip"_s,
            u"Routing already matches — firing re-asserts 2 crosspoints. Skipping Out 5, Out 6, Out 7 "
            u"(locked). | "
            "Fire — Re-assert 2 Routes"_s},
        {"four locked, one of them gone", whole, {{}, 2, routes(17, 20), 0, {}},
            u"✓ Active — matches current routing # 4"_s,
            u"Routing already matches this salvo.\n# Out 18 — locked, will skip\n# Out 19 — locked, will "
            u"skip\n"
            "# Out 20 — locked, will skip\n# Dest 21 — locked, will skip"_s,
            u"Routing already matches — firing re-asserts 2 crosspoints. "
            "Skipping Out 18, Out 19, Out 20 +1 more (locked). | Fire — Re-assert 2 Routes"_s},
        {"a panel's salvo", ofPanel, {routes(1, 1), 0, {}, 0, {}}, u"1 change"_s,
            u"* Level 0 Out 2 ← In 3 was In 2\n! 2 destinations no longer on this panel — still fires."_s,
            u"Changes 1 crosspoint. Changes only destinations captured from “Studio”. | Fire — 1 Change"_s,
            true},
        {"the whole router's while a panel is active", whole, {routes(1, 1), 0, {}, 0, {}}, u"1 change"_s,
            u"* Level 0 Out 2 ← In 3 was In 2"_s,
            u"Changes 1 crosspoint. Fires on the full router, including ports hidden by “Studio”. | Fire — 1 Change"_s,
            true},
        {"one whose panel is gone, under another panel", orphan, {routes(1, 1), 0, {}, 0, {}}, u"1 change"_s,
            u"* Level 0 Out 2 ← In 3 was In 2"_s,
            u"Changes 1 crosspoint. Fires on the full router, including ports hidden by “Studio”. | Fire — 1 Change"_s,
            true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller->setActivePanelID(c.isPanelActive ? std::optional(studio.id) : std::nullopt);
        EXPECT_EQ(textOf(salvoTexts::status(c.salvo, c.diff, *controller)), c.status);
        EXPECT_EQ(textOf(salvoTexts::preview(c.salvo, c.diff, *controller)), c.preview);
        auto question = salvoTexts::fireMessage(c.salvo, c.diff, *controller);
        if (salvoTexts::canFire(c.diff, *controller))
            question += u" | "_s + salvoTexts::fireButton(c.diff);
        EXPECT_EQ(question, c.question);
    }

    report(driverEvent::Disconnected{});
    const SalvoDiff diff{routes(1, 1), 0, routes(2, 2), 0, {}};
    EXPECT_EQ(textOf(salvoTexts::status(whole, diff, *controller)), u"4 routes"_s);
    EXPECT_FALSE(salvoTexts::canFire(diff, *controller));
    EXPECT_EQ(salvoTexts::fireMessage(whole, diff, *controller),
        u"Offline — salvos can be edited but not fired."_s);
}

TEST_F(SalvoTextsTest, AsksForANewSalvoInTheWordsOfItsPlace)
{
    const SubPanel studio{.name = u"Studio\n1"_s, .sourceIndices = {}, .destinationIndices = {4}};
    const auto whole = u"Captures every destination's current source on all levels. "
                       "Saving with an existing name updates that salvo."_s;
    EXPECT_EQ(salvoTexts::newSalvoMessage({}, false), whole);
    EXPECT_EQ(salvoTexts::newSalvoMessage({}, true), whole);
    EXPECT_EQ(salvoTexts::newSalvoMessage(studio, false),
        u"Captures the current source for each of “Studio 1”'s destinations. "
        "Firing changes only those destinations. "
        "Saving with a name already used on this panel updates that salvo."_s);
    EXPECT_EQ(salvoTexts::newSalvoMessage(studio, true),
        u"Captures the current source for each of “Studio 1”'s 1 destinations, on all levels. "
        "Firing changes only those destinations. "
        "Saving with a name already used on this panel updates that salvo."_s);
}

TEST_F(SalvoTextsTest, NamesTheLevelOnlyWhereThereAreSeveral)
{
    connectTo(matrix(3, 3));
    EXPECT_EQ(textOf(salvoTexts::preview({}, {routes(1, 1), 0, {}, 0, {}}, *controller)),
        u"* Out 2 ← In 3 was In 2"_s);
}

TEST_F(SalvoTextsTest, CountsOneDestinationThatThePanelLost)
{
    const SubPanel studio{.name = u"Studio"_s, .sourceIndices = {0}, .destinationIndices = {0}};
    controller->savePanel(studio);
    auto ofPanel = salvo(studio.id);
    ofPanel.routes = {{0, 0, 1}, {0, 5, 1}, {1, 5, 1}};
    EXPECT_EQ(textOf(salvoTexts::preview(ofPanel, {}, *controller)),
        u"! 1 destination no longer on this panel — still fires."_s);
}

} // namespace

} // namespace corvane
