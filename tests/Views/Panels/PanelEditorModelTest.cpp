#include "Views/Panels/PanelEditorModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using testing::ElementsAre;

class PanelEditorModelTest : public ViewModelTest<PanelEditorModel> {
protected:
    void SetUp() override
    {
        ViewModelTest::SetUp();
        connectTo(matrix(12, 3));
    }

    SubPanel begin(const QList<qint64>& sources, const QList<qint64>& destinations = {0})
    {
        const SubPanel panel{.name = u"P"_s, .sourceIndices = sources, .destinationIndices = destinations};
        model.begin(panel);
        return panel;
    }

    /// The rows of the sources: "# head", "+ 3 In 3" in the panel, "- 4 In 4" out of it.
    [[nodiscard]] QStringList rows()
    {
        QStringList texts;
        for (const auto& row : model.sources()->rows())
            texts << (row.isHead()
                    ? u"# "_s + row.text
                    : u"%1 %2 %3"_s.arg(row.isChosen() ? u"+"_s : u"-"_s).arg(row.number, row.text));
        return texts;
    }

    void press(const QString& number)
    {
        const auto& shown = model.sources()->rows();
        const auto found = std::ranges::find(shown, number, &PanelPortRow::number);
        model.sources()->press(static_cast<int>(found - shown.cbegin()));
    }
};

TEST_F(PanelEditorModelTest, SortsPortsIntoThoseInThePanelAndTheOthers)
{
    report(driverEvent::StateReplaced{matrix(4, 3)});
    begin({2, 6, -5, 2, 0});
    EXPECT_THAT(rows(),
        ElementsAre(u"# Sources in panel"_s, u"+ -4 Port -4 — not on this router"_s, u"+ 1 In 1"_s,
            u"+ 3 In 3"_s, u"+ 7 Port 7 — not on this router"_s, u"# Available (2 of 4)"_s, u"- 2 In 2"_s,
            u"- 4 In 4"_s));
    EXPECT_EQ(model.content().missing, u"2 saved ports not on this router — kept for when it returns."_s);
    EXPECT_EQ(model.content().saveText, u"Save (4×1)"_s);
    EXPECT_EQ(model.destinations()->label(), u"Destinations in panel"_s);
    EXPECT_FALSE(model.sources()->isReachable(0));
    EXPECT_EQ(model.sources()->startRow(), 1);
    EXPECT_EQ(model.sources()->widestNumber(), u"-4"_s);

    press(u"7"_s);
    press(u"4"_s);
    press(u"1"_s);
    EXPECT_THAT(model.sources()->chosen(), ElementsAre(-5, 2, 3));
    EXPECT_EQ(model.content().missing, u"1 saved port not on this router — kept for when it returns."_s);
}

TEST_F(PanelEditorModelTest, PutsTheNextRowInThePlaceOfOneThatMoves)
{
    begin({0, 1, 2});
    const int firstAvailable = 5;
    for (const int expected : {3, 4, 5}) {
        const int row = firstAvailable + (expected - 3);
        EXPECT_EQ(model.sources()->rowAt(row)->index, expected);
        model.sources()->press(row);
        EXPECT_EQ(model.sources()->rowAt(row + 1)->index, expected + 1);
    }
    for (const int expected : {1, 2, 3}) {
        EXPECT_EQ(model.sources()->rowAt(2)->index, expected);
        model.sources()->press(2);
    }
}

TEST_F(PanelEditorModelTest, FiltersWhatCouldBeChosenByNameOrNumber)
{
    begin({0});
    struct Case {
        QString search;
        QList<qint64> available;
    };
    const Case cases[] = {
        {u"n 12"_s, {11}},
        {u"IN 1"_s, {9, 10, 11}},
        {u"2"_s, {1, 11}},
        {u"02"_s, {}},
        {u"1"_s, {9, 10, 11}},
    };
    for (const auto& c : cases) {
        model.setSearch(c.search);
        QList<qint64> available;
        for (const auto& row : model.sources()->rows())
            if (row.kind == PanelPortRow::Kind::available)
                available << row.index;
        EXPECT_EQ(available, c.available) << c.search.toStdString();
        EXPECT_EQ(rows()[2], u"# Available (%1 of 12)"_s.arg(c.available.size()));
        EXPECT_EQ(rows()[1], u"+ 1 In 1"_s);
    }
    report(driverEvent::LabelChanged{PortKind::source, 4, u"Number 1"_s});
    EXPECT_EQ(rows()[3], u"- 5 Number 1"_s);

    model.sources()->chooseAll();
    EXPECT_THAT(model.sources()->chosen(), ElementsAre(0, 4, 9, 10, 11));
    model.setSearch(u"12"_s);
    model.sources()->chooseNone();
    EXPECT_THAT(model.sources()->chosen(), ElementsAre(0, 4, 9, 10));
}

TEST_F(PanelEditorModelTest, LosesNothingWhenTheRouterShrinksOrDrops)
{
    begin({1, 11});
    model.setName(u"Mine"_s);
    report(driverEvent::StateReplaced{matrix(4, 3)});
    EXPECT_THAT(rows()[2], u"+ 12 Port 12 — not on this router"_s);
    EXPECT_EQ(model.content().missing, u"1 saved port not on this router — kept for when it returns."_s);
    model.sources()->chooseNone();
    EXPECT_THAT(model.sources()->chosen(), ElementsAre(11));
    report(driverEvent::Disconnected{});
    EXPECT_TRUE(model.content().isShown);
    model.commit();
    ASSERT_EQ(controller->panels().size(), 1);
    EXPECT_EQ(controller->panels()[0].name, u"Mine"_s);
    EXPECT_THAT(controller->panels()[0].sourceIndices, ElementsAre(11));
}

TEST_F(PanelEditorModelTest, SavesOnlyWithANameAndPortsOfBothKinds)
{
    const auto panel = begin({3}, {});
    EXPECT_EQ(model.content().saveText, u"Save (1×0)"_s);
    model.commit();
    EXPECT_TRUE(controller->panels().isEmpty());
    EXPECT_TRUE(model.content().isShown);
    model.destinations()->press(model.destinations()->startRow());
    EXPECT_TRUE(model.content().isSavable);
    model.setName(u" \n"_s);
    EXPECT_FALSE(model.content().isSavable);
    model.setName(u" Edit \n"_s);
    EXPECT_TRUE(model.content().isSavable);

    model.commit();
    EXPECT_FALSE(model.content().isShown);
    EXPECT_THAT(controller->panels(), ElementsAre(SubPanel{panel.id, u"Edit"_s, {3}, {0}}));
    EXPECT_EQ(controller->activePanelID(), panel.id);

    // An edit of a panel that is there makes it no more active than it was.
    controller->setActivePanelID(std::nullopt);
    model.begin(controller->panels()[0]);
    EXPECT_EQ(model.search(), QString());
    model.commit();
    EXPECT_EQ(controller->activePanelID(), std::nullopt);

    begin({1});
    model.cancel();
    model.commit();
    EXPECT_EQ(controller->panels().size(), 1);
}

} // namespace

} // namespace corvane
