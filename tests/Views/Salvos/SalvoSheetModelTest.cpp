#include "Views/Salvos/SalvoSheetModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class SalvoSheetModelTest : public ControllerTest {
protected:
    SalvoSheetModelTest()
    {
        connectTo(matrix(8, 8, 2));
        panel.name = u"Studio"_s;
        panel.sourceIndices = {0, 1};
        panel.destinationIndices = {1, 2};
    }

    void open() { model.setController(controller.get()); }
    void showPanel()
    {
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
    }
    void follow() { queue.advance(SalvoDiffs::frame); }
    [[nodiscard]] int rowOf(const QString& name) const
    {
        const auto found = std::ranges::find(model.rows(), name, &SalvoRow::text);
        return found == model.rows().cend() ? -1 : static_cast<int>(found - model.rows().cbegin());
    }
    void act(const QString& name, const QString& action) { runAction(model.actions(rowOf(name)), action); }
    /// As a screen reader hears them.
    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            const auto speech = model.speech(row);
            const auto description = speech.description.isEmpty() ? u""_s : u": "_s + speech.description;
            texts.push_back((speech.name + description).toStdString());
        }
        return texts;
    }
    [[nodiscard]] std::vector<QString> names() const
    {
        std::vector<QString> names;
        for (const auto& salvo : controller->salvos())
            names.push_back(salvo.name);
        return names;
    }

    SubPanel panel;
    SalvoSheetModel model{queue};
};

TEST_F(SalvoSheetModelTest, ListsTheSectionsOfEachScope)
{
    open();
    EXPECT_TRUE(model.content().isEmpty);
    EXPECT_THAT(rows(), IsEmpty());
    controller->saveSalvo(u"House"_s, {});
    EXPECT_FALSE(model.content().isEmpty);
    EXPECT_THAT(rows(),
        ElementsAre("Full Router Salvos", "House: Active — matches current routing",
            "Tap a salvo to preview exactly what firing it would change."));
    showPanel();
    EXPECT_THAT(rows(),
        ElementsAre("Studio Salvos", "No salvos for “Studio” yet", "Full Router",
            "House: Active — matches current routing", "These fire the whole router, not just this panel."));
    controller->saveSalvo(u"Morning"_s, panel.id);
    controller->take(5, 1);
    controller->toggleLock(2);
    follow();
    EXPECT_THAT(rows(),
        ElementsAre("Studio Salvos", "Morning: 2 changes, 1 locked",
            "Salvos here capture only this panel's destinations. Tap one to preview what firing it would "
            "change.",
            "Full Router", "House: 2 changes, 1 locked",
            "These fire the whole router, not just this panel."));
    EXPECT_EQ(model.startRow(), 1);
    EXPECT_FALSE(model.isReachable(0)) << "a head";
    report(driverEvent::Disconnected{});
    EXPECT_THAT(rows(),
        ElementsAre("Offline — salvos can be edited but not fired", "Studio Salvos", "Morning: 4 routes",
            "Salvos here capture only this panel's destinations. Tap one to preview what firing it would "
            "change.",
            "Full Router", "House: 16 routes", "These fire the whole router, not just this panel."));
    const auto& content = model.content();
    EXPECT_EQ(content.salvos + content.sectionTexts + content.notes, model.rowCount());
    model.setController(nullptr);
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(SalvoSheetModelTest, UnfoldsOnePreviewAtATimeAndKeepsItTrue)
{
    controller->saveSalvo(u"A"_s, {});
    controller->take(5, 1);
    controller->saveSalvo(u"B"_s, {});
    open();
    model.press(rowOf(u"A"_s));
    EXPECT_THAT(rows(),
        ElementsAre("Full Router Salvos", "A: 2 changes", "Level 0 Out 2 ← In 2 was In 6",
            "Level 1 Out 2 ← In 2 was In 6", "14 already match", "B: Active — matches current routing",
            "Tap a salvo to preview exactly what firing it would change."));
    EXPECT_FALSE(model.isReachable(2));
    EXPECT_TRUE(model.rows().at(4).isLast);
    model.diffs()->watch(controller->salvos().first().id);
    report(driverEvent::RouteChanged{0, 1, 1});
    follow();
    EXPECT_EQ(rows().at(2), "Level 1 Out 2 ← In 2 was In 6");
    controller->rename(PortKind::destination, 1, u"Wall"_s);
    EXPECT_EQ(rows().at(2), "Level 1 Wall ← In 2 was In 6");
    act(u"B"_s, u"Preview Changes"_s);
    EXPECT_EQ(rows().at(1), "A: 1 change");
    EXPECT_EQ(rows().at(3), "Level 0 Wall ← In 6 was In 2");
    act(u"B"_s, u"Collapse"_s);
    EXPECT_EQ(model.expandedID(), std::nullopt);
    EXPECT_EQ(model.rowCount(), 4);
}

TEST_F(SalvoSheetModelTest, WorksOutWhatIsWatchedOnceAFrameAndOnlyWhereItIsTouched)
{
    controller->saveSalvo(u"All"_s, {});
    showPanel();
    controller->saveSalvo(u"Two"_s, panel.id);
    open();
    Tellings tellings(*model.diffs(), &SalvoDiffs::changed);
    for (const auto& salvo : controller->salvos()) {
        (void)model.diffs()->of(salvo);
        model.diffs()->watch(salvo.id);
    }
    struct Case {
        const char* name;
        std::function<void()> change;
        int changed;
    };
    const Case cases[] = {
        {"a hundred tallies of one frame",
            [&] {
                for (int i = 0; i < 100; ++i)
                    controller->take(i % 8, 5);
            },
            1},
        {"a destination of both", [&] { controller->take(7, 1); }, 2},
        {"a lock", [&] { controller->toggleLock(5); }, 1},
        {"a signal",
            [&] {
                report(driverEvent::InputStatusChanged{0, InputSignalStatus{true, {}}});
            },
            0},
        {"a selection", [&] { controller->focusSource(3); }, 0},
        {"a label", [&] { controller->rename(PortKind::source, 0, u"Desk"_s); }, 2},
        {"another router", [&] { report(driverEvent::StateReplaced{matrix(3, 3)}); }, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        c.change();
        follow();
        EXPECT_EQ(tellings.count(), c.changed);
        for (const auto& salvo : controller->salvos())
            EXPECT_EQ(model.diffs()->of(salvo), controller->diff(salvo));
    }
    for (const auto& salvo : controller->salvos())
        model.diffs()->unwatch(salvo.id);
    controller->take(0, 1);
    follow();
    EXPECT_EQ(tellings.count(), 0) << "nobody looks";
    EXPECT_EQ(model.diffs()->of(controller->salvos().first()).changes.size(),
        controller->diff(controller->salvos().first()).changes.size());
}

TEST_F(SalvoSheetModelTest, ProposesANameAndKeepsTheCaseOfOneThatIsTaken)
{
    open();
    auto& dialogs = *model.dialogs();
    const auto save = [&](const QString& name) {
        dialogs.beginNew();
        const auto proposed = dialogs.draftName();
        if (!name.isNull())
            dialogs.setDraftName(name);
        dialogs.commitNew();
        EXPECT_FALSE(dialogs.showingNew());
        return proposed;
    };
    EXPECT_EQ(save({}), u"Salvo 1"_s);
    EXPECT_EQ(save(u"SALVO 2"_s), u"Salvo 2"_s);
    EXPECT_EQ(save(u" \n "_s), u"Salvo 3"_s);
    EXPECT_THAT(names(), ElementsAre(u"Salvo 1"_s, u"SALVO 2"_s));
    EXPECT_EQ(save(u"Salvo 4"_s), u"Salvo 3"_s);
    EXPECT_EQ(save(u"Noon"_s), u"Salvo 5"_s) << "three are there, and 4 is taken";
    const auto before = controller->salvos().first();
    controller->take(7, 0);
    save(u" salvo 1 "_s);
    const auto after = controller->salvos().first();
    EXPECT_EQ(after.name, u"Salvo 1"_s);
    EXPECT_EQ(after.id, before.id);
    EXPECT_NE(after.routes, before.routes);
    showPanel();
    EXPECT_EQ(save(u"salvo 1"_s), u"Salvo 1"_s);
    EXPECT_EQ(controller->salvos().size(), 5) << "another scope";
    EXPECT_EQ(controller->salvos().last().panelID, panel.id);
}

TEST_F(SalvoSheetModelTest, RenamesUnlessTheNameIsTaken)
{
    struct Case {
        const char* name;
        QString draft;
        QString renamed;
        bool conflicts;
    };
    const Case cases[] = {
        {"another", u" Noon "_s, u"Noon"_s, false},
        {"the same", u"A"_s, u"A"_s, false},
        {"its own in another case", u"a"_s, u"a"_s, false},
        {"blanks", u" \n"_s, u"A"_s, false},
        {"taken in another case", u"b"_s, u"A"_s, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        for (const auto& name : {u"A"_s, u"B"_s})
            controller->saveSalvo(name, {});
        open();
        act(u"A"_s, u"Rename"_s);
        EXPECT_EQ(model.renameDraft(), u"A"_s);
        model.setRenameDraft(c.draft);
        model.commitRename();
        EXPECT_FALSE(model.isRenaming());
        EXPECT_THAT(names(), ElementsAre(c.renamed, u"B"_s));
        EXPECT_EQ(model.renameConflict(), c.conflicts ? std::optional(c.draft) : std::nullopt);
        EXPECT_EQ(model.conflictMessage(), c.conflicts ? u"A salvo named “b” already exists."_s : QString());
        model.clearConflict();
        EXPECT_FALSE(model.hasRenameConflict());
        while (!controller->salvos().isEmpty())
            controller->deleteSalvo(controller->salvos().first());
        model.setController(nullptr);
    }
}

TEST_F(SalvoSheetModelTest, FiresWhatTheConfirmationSaidAndNothingThatCannotBe)
{
    controller->saveSalvo(u"A"_s, {});
    controller->take(5, 1);
    (void)told();
    open();
    auto& dialogs = *model.dialogs();
    act(u"A"_s, u"Fire"_s);
    EXPECT_EQ(dialogs.fireConfirmation().title, u"Fire “A”?"_s);
    EXPECT_EQ(dialogs.fireConfirmation().acceptText, u"Fire — 2 Changes"_s);
    report(driverEvent::RouteChanged{0, 1, 1});
    follow();
    EXPECT_EQ(dialogs.fireConfirmation().acceptText, u"Fire — 1 Change"_s) << "it follows the router";
    dialogs.fire();
    EXPECT_FALSE(dialogs.fireConfirmation().isShown);
    EXPECT_EQ(told().size(), 1U);

    for (const auto& last : {u"drops"_s, u"is deleted"_s}) {
        SCOPED_TRACE(last.toStdString());
        act(u"A"_s, u"Fire"_s);
        if (last == u"drops"_s)
            report(driverEvent::Disconnected{});
        else
            controller->deleteSalvo(controller->salvos().first());
        EXPECT_FALSE(dialogs.fireConfirmation().isShown && dialogs.fireConfirmation().canAccept);
        dialogs.fire();
        EXPECT_THAT(told(), IsEmpty());
        dialogs.cancel();
        connectTo(matrix(8, 8, 2));
    }
}

TEST_F(SalvoSheetModelTest, OffersWhatCanBeDone)
{
    struct Case {
        const char* name;
        QList<Route> routes;
        std::vector<std::string> menu;
    };
    const Case cases[] = {
        {"a change", {{0, 0, 5}}, {"Fire", "Rename", "Update from Current Routing", "Delete"}},
        {"in sync", {{0, 0, 0}}, {"Fire", "Rename", "(Update from Current Routing)", "Delete"}},
        {"empty", {}, {"Rename", "Update from Current Routing", "Delete"}},
        {"nothing that fits", {{0, 90, 0}, {7, 0, 0}}, {"Rename", "Update from Current Routing", "Delete"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        salvos.add({QUuid::createUuid(), u"A"_s, c.routes, {}, {}}, router.id);
        controller->deleteSalvo({});
        open();
        std::vector<std::string> menu;
        for (const auto& action : model.menu(rowOf(u"A"_s)))
            menu.push_back((action.isEnabled ? action.text : u"(%1)"_s.arg(action.text)).toStdString());
        EXPECT_EQ(menu, c.menu);
        const auto look = model.index(rowOf(u"A"_s)).data(SalvoListModel::lookRole).value<SalvoLook>();
        EXPECT_EQ(look.canFire, c.menu.front() == "Fire");
        controller->deleteSalvo(controller->salvos().first());
    }
}

TEST_F(SalvoSheetModelTest, TellsHowMuchOfALargeSalvoIsConfirmed)
{
    connectTo(matrix(300, 300));
    Salvo large;
    for (qint64 destination = 0; destination < 300; ++destination)
        large.routes.append({0, destination, destination < 50 ? destination : 0});
    open();
    const auto text = [&] {
        queue.advance(SalvoProgressModel::pace);
        return model.progress()->content().isShown ? model.progress()->content().text : u"-"_s;
    };
    const auto confirm = [&](qint64 from, qint64 to) {
        for (qint64 destination = from; destination < to; ++destination)
            report(driverEvent::RouteChanged{0, destination, 0});
    };
    EXPECT_EQ(text(), u"-"_s);
    controller->fireSalvo(large);
    EXPECT_EQ(text(), u"0 of 250 crosspoints confirmed"_s) << "50 were there already";
    confirm(50, 60);
    report(driverEvent::RouteChanged{0, 70, 3});
    EXPECT_EQ(text(), u"10 of 250 crosspoints confirmed"_s);
    confirm(50, 300);
    EXPECT_EQ(text(), u"-"_s);

    struct Case {
        const char* name;
        std::function<void()> end;
    };
    const Case cases[] = {
        {"silence", [&] { queue.advance(std::chrono::seconds(12)); }},
        {"a drop", [&] { report(driverEvent::Disconnected{}); }},
        {"an error", [&] { report(driverEvent::Error{u"gone"_s}); }},
        {"the whole truth",
            [&] {
                auto state = matrix(300, 300);
                for (qint64 destination = 50; destination < 300; ++destination)
                    state.routing[0].insert(destination, 0);
                report(driverEvent::StateReplaced{state});
            }},
        {"a disconnect", [&] { controller->disconnect(); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        connectTo(matrix(300, 300));
        controller->fireSalvo(large);
        EXPECT_NE(text(), u"-"_s);
        c.end();
        EXPECT_EQ(text(), u"-"_s);
    }
    connectTo(matrix(300, 300));
    driver().failWith(std::runtime_error("no"));
    controller->fireSalvo(large);
    EXPECT_EQ(text(), u"-"_s) << "it could not be sent";
    driver().failure = {};
    large.routes.resize(200);
    controller->fireSalvo(large);
    EXPECT_EQ(text(), u"-"_s) << "not a large one";
}

} // namespace

} // namespace corvane
