#include "Views/Shared/FittingRow.h"

#include <QQuickWindow>

#include <gmock/gmock.h>

// What the engine calls when the module is imported; attached properties are found only once their type is
// registered.
void qml_register_types_Corvane_Views_Shared();

namespace corvane {

namespace {

using Shown = std::vector<std::string>;

/// Three parts, 20 high: `name` that may be cut, `mark` that may go, `button` that can be shorter.
class FittingRowTest : public testing::Test {
protected:
    static void SetUpTestSuite() { qml_register_types_Corvane_Views_Shared(); }

    void SetUp() override
    {
        row.setParentItem(window.contentItem());
        row.setProperty("spacing", 10);
        for (QQuickItem* const item : {&name, &mark, &button}) {
            item->setParentItem(&row);
            item->setImplicitHeight(20);
        }
        name.setImplicitWidth(100);
        mark.setImplicitWidth(40);
        button.setImplicitWidth(90);
        wishes(mark).setProperty("shortFrom", 2);
        wishes(button).setProperty("shortFrom", 1);
        wishes(button).setProperty("shortWidth", 30);
        wishes(name).setProperty("shrinksFrom", 2);
        wishes(name).setProperty("leastWidth", 28);
        window.show();
    }

    [[nodiscard]] static FittingPart& wishes(QQuickItem& item)
    {
        return *qobject_cast<FittingPart*>(qmlAttachedPropertiesObject<FittingRow>(&item));
    }

    /// Where the parts are that are shown: "x+width", and "@y" for those on a further line.
    [[nodiscard]] Shown shownIn(double width)
    {
        row.setWidth(width);
        window.grabWindow();
        Shown shown;
        for (const QQuickItem* const item : {&name, &mark, &button}) {
            if (!item->isVisible())
                continue;
            const auto line = item->y() == 0 ? "" : "@" + std::to_string(static_cast<int>(item->y()));
            shown.push_back(std::to_string(static_cast<int>(item->x())) + "+"
                + std::to_string(static_cast<int>(item->width())) + line);
        }
        return shown;
    }

    QQuickWindow window;
    FittingRow row;
    QQuickItem name;
    QQuickItem mark;
    QQuickItem button;
};

TEST_F(FittingRowTest, ShowsTheFirstFormThatFits)
{
    struct Case {
        const char* name;
        double width;
        int form;
        Shown shown;
    };
    const Case cases[] = {
        {"all", 250, 0, {"0+100", "110+40", "160+90"}},
        {"more than enough", 400, 0, {"0+100", "110+40", "160+90"}},
        {"a point less", 249, 1, {"0+100", "110+40", "160+30"}},
        {"just so", 190, 1, {"0+100", "110+40", "160+30"}},
        {"without what may go", 189, 2, {"0+100", "110+30"}},
        {"cut", 139, 2, {"0+99", "109+30"}},
        {"cut as far as it is of use", 68, 2, {"0+28", "38+30"}},
        {"cut to nothing", 67, 2, {"0+30"}},
        {"the last form where none fits", 5, 2, {"0+30"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(shownIn(c.width), c.shown);
        EXPECT_EQ(row.form(), c.form);
        EXPECT_EQ(wishes(button).isShort(), c.form >= 1);
    }
}

TEST_F(FittingRowTest, PutsTheRestAtTheFarEndEvenWhereItsFirstPartIsLeftOut)
{
    wishes(mark).setProperty("atEnd", true);
    EXPECT_EQ(shownIn(400), (Shown{"0+100", "260+40", "310+90"}));
    mark.setImplicitWidth(0);
    EXPECT_EQ(shownIn(400), (Shown{"0+100", "310+90"})) << "what wants no width is not there";
}

TEST_F(FittingRowTest, BreaksIntoLinesThatAreCentred)
{
    row.setProperty("lineSpacing", 6);
    wishes(mark).setProperty("lines", QVariant::fromValue(QList<int>{0, 1}));
    wishes(button).setProperty("shortFrom", FittingPart::never);
    EXPECT_EQ(shownIn(250), (Shown{"0+100", "110+40", "160+90"}));
    EXPECT_EQ(shownIn(249), (Shown{"0+100", "80+40@26", "110+90"}));
    EXPECT_EQ(row.implicitWidth(), 200);
    EXPECT_EQ(row.implicitHeight(), 46);
}

TEST_F(FittingRowTest, FollowsWhatItsPartsWant)
{
    (void)shownIn(400);
    EXPECT_EQ(row.implicitWidth(), 250);
    row.setHeight(27);
    EXPECT_EQ(shownIn(250), (Shown{"0+100@3", "110+40@3", "160+90@3"})) << "in the middle of the row";
    row.setHeight(0);
    name.setImplicitWidth(120);
    button.setImplicitHeight(28);
    wishes(button).setProperty("fullWidth", 50);
    EXPECT_EQ(shownIn(400), (Shown{"0+120@4", "130+40@4", "180+50"}));
    EXPECT_EQ(row.implicitHeight(), 28);
    row.setProperty("available", 225);
    EXPECT_EQ(shownIn(400), (Shown{"0+120@4", "130+40@4", "180+30"})) << "less than its own width";
    mark.setParentItem(nullptr);
    mark.setVisible(false);
    EXPECT_EQ(shownIn(400), (Shown{"0+120@4", "130+50"}));
}

TEST_F(FittingRowTest, StandsOnTheBaselineOfThePartBefore)
{
    name.setBaselineOffset(15);
    mark.setBaselineOffset(11);
    wishes(mark).setProperty("onBaseline", true);
    EXPECT_EQ(shownIn(250), (Shown{"0+100", "110+40@4", "160+90"}));
}

} // namespace

} // namespace corvane
