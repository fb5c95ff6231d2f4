#include "QmlTest.h"

#include "Views/List/DestinationListModel.h"
#include "Views/Shared/RowArea.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Calls = std::vector<std::string>;

class DestinationListQmlTest : public QmlTest {
protected:
    void show(const RouterState& state)
    {
        connectTo(state);
        open();
    }
    void open()
    {
        model.setController(controller.get());
        load(u"List/DestinationListView.qml"_s, {700, 500},
            {{u"model"_s, QVariant::fromValue(&model)}, {u"controlBarClearance"_s, 60}});
    }
    void waitForASecondClick() { queue.advance(PaneClicks::longestHold); }

    [[nodiscard]] QAccessibleInterface* list(const QString& name) { return find(QAccessible::List, name); }
    [[nodiscard]] QAccessibleInterface* button(const QString& name)
    {
        return find(QAccessible::Button, name);
    }

    [[nodiscard]] RowArea& sources() { return *qobject_cast<RowArea*>(list(u"Sources"_s)->object()); }
    [[nodiscard]] RowArea& destinations()
    {
        return *qobject_cast<RowArea*>(list(u"Destinations"_s)->object());
    }

    /// The item that shows this row, or null if none does.
    [[nodiscard]] QQuickItem* shown(const RowArea& rows, int row) const
    {
        for (QQuickItem* const item : items("SelectableRow"))
            if (item->isVisible() && rows.isAncestorOf(item) && item->property("index") == row)
                return item;
        return nullptr;
    }

    [[nodiscard]] QPointF pointOf(const RowArea& rows, int row) const
    {
        return rows.mapToScene(rows.rectOf(row).center());
    }

    GlassKit theme{nullptr};
    DestinationListModel model{queue, theme};
};

TEST_F(DestinationListQmlTest, RoutesThroughTheAccessibilityTree)
{
    show(matrix(4, 4));
    pressOn(list(u"Destinations"_s)->child(2));
    EXPECT_NE(find(QAccessible::StaticText, u"→ Out 3"_s), nullptr);
    pressOn(list(u"Sources"_s)->child(0));
    EXPECT_EQ(told(), Calls{"takeAll 0:2<0"});
    EXPECT_EQ(nameOf(list(u"Destinations"_s)->child(2)), "Out 3, 3, In 1");
}

TEST_F(DestinationListQmlTest, GangsThroughTheHeaderAndKeepsItsButtons)
{
    show(matrix(4, 4));
    QAccessibleInterface* const multiple = button(u"Multiple"_s);
    ASSERT_NE(multiple, nullptr);
    pressOn(multiple);
    EXPECT_EQ(nameOf(multiple), "Select All") << "the same button, so that it keeps the keyboard";
    pressOn(multiple);
    EXPECT_EQ(controller->selectedDestinations().size(), 4);
    draw();
    EXPECT_NE(find(QAccessible::StaticText, u"4 selected"_s), nullptr);
    pressOn(button(u"Done"_s));
    EXPECT_FALSE(controller->multiSelectMode());
    draw();
    EXPECT_EQ(button(u"Done"_s), nullptr);
}

TEST_F(DestinationListQmlTest, MakesItemsForWhatIsInViewOnly)
{
    show(matrix(1024, 1024));
    EXPECT_GE(items("SelectableRow").size(), 2 * 8);
    EXPECT_LE(items("SelectableRow").size(), 2 * 20);
    EXPECT_EQ(list(u"Sources"_s)->childCount(), 1024);
}

TEST_F(DestinationListQmlTest, ItemsThatAreUsedAgainShowTheRowsTheyAreUsedFor)
{
    show(matrix(300, 300));
    sources().takeKeyboard();
    for (const int key : {Qt::Key_End, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_PageDown}) {
        press(key);
        draw();
        const int focus = sources().currentRow();
        const QQuickItem* const item = shown(sources(), focus);
        ASSERT_NE(item, nullptr);
        const auto row = item->property("row").value<SelectableRow>();
        EXPECT_EQ(row.title, u"In %1"_s.arg(focus + 1));
        EXPECT_EQ(item->mapRectToItem(&sources(), item->boundingRect()), sources().rectOf(focus))
            << "where screen readers look for it";
    }
}

TEST_F(DestinationListQmlTest, ClicksRouteAndDoubleClicksRename)
{
    show(matrix(8, 8));
    click(pointOf(destinations(), 3));
    EXPECT_EQ(controller->selectedDestination(), 3);
    EXPECT_TRUE(destinations().hasActiveFocus());
    click(pointOf(sources(), 1));
    EXPECT_TRUE(shown(sources(), 1)->property("row").value<SelectableRow>().isHeld);
    clickAgain(pointOf(sources(), 1));
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::source, 1}));
    waitForASecondClick();
    EXPECT_EQ(told(), Calls{}) << "nothing went on air";
    click(pointOf(sources(), 2));
    waitForASecondClick();
    EXPECT_EQ(told(), Calls{"takeAll 0:3<2"});
}

TEST_F(DestinationListQmlTest, TheKeyboardGoesToTheRowsWhenItsButtonGoes)
{
    show(matrix(4, 4));
    controller->setMultiSelectMode(true);
    draw();
    QAccessibleInterface* const done = button(u"Done"_s);
    qobject_cast<QQuickItem*>(done->object())->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    release(Qt::Key_Space);
    draw();
    EXPECT_FALSE(controller->multiSelectMode());
    EXPECT_TRUE(destinations().hasActiveFocus());
}

TEST_F(DestinationListQmlTest, AClickOnTheBadgeTogglesOnce)
{
    show(matrix(8, 8));
    controller->setMultiSelectMode(true);
    draw();
    for (QQuickItem* const badge : items("GangBadge")) {
        const QQuickItem* const row = badge->parentItem();
        if (!badge->isVisible() || row->property("index") != 2)
            continue;
        click(centre(badge));
        EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{0, 2}));
        clickAgain(centre(badge));
        EXPECT_EQ(controller->selectedDestinations(), QSet<qint64>{});
        EXPECT_EQ(controller->renameTarget(), std::nullopt);
        return;
    }
    FAIL() << "no badge";
}

TEST_F(DestinationListQmlTest, TheKeyboardGoesFromPaneToPane)
{
    show(matrix(8, 8));
    sources().takeKeyboard();
    press(Qt::Key_Down);
    EXPECT_EQ(sources().currentRow(), 1);
    press(Qt::Key_Right);
    EXPECT_TRUE(destinations().hasActiveFocus());
    EXPECT_TRUE(destinations().showsFocus());
    press(Qt::Key_Right);
    EXPECT_TRUE(destinations().hasActiveFocus()) << "there is nothing farther right";
    press(Qt::Key_Left);
    EXPECT_TRUE(sources().hasActiveFocus());
    EXPECT_EQ(sources().currentRow(), 1);
}

RouterState withHardLabels()
{
    auto state = matrix(8, 8);
    const QStringList names{QString(200, u'W'), u"مخرج الاستوديو الرئيسي"_s, u"🎥 Stadium"_s, u""_s,
        u"<h1>Cam</h1>"_s, u"a\nb\tc"_s, QString(200, u' ')};
    for (int i = 0; i < names.size(); ++i) {
        state.sources[i].label = names.at(i);
        state.destinations[i].label = names.at(i);
        state.inputStatus.insert(i, {true, names.at(i)});
    }
    state.lockedDestinations = {0, 1};
    return state;
}

TEST_F(DestinationListQmlTest, NoTextEverLiesOnAnother)
{
    show(withHardLabels());
    controller->setTakeMode(TakeMode::confirm);
    controller->setMultiSelectMode(true);
    controller->selectAllInGang();
    controller->chooseSource(0);
    for (const auto direction : {RoutingDirection::destinationLed, RoutingDirection::sourceLed}) {
        if (direction != controller->routingDirection())
            controller->setDirection(direction);
        for (const int width : {400, 500, 580, 700, 900, 3500}) {
            SCOPED_TRACE(width);
            resize({width, 430});
            QList<QPair<QString, QRectF>> texts;
            for (const QQuickItem* const text : items("PlainText")) {
                const QRectF place = text->mapRectToScene(text->boundingRect());
                if (text->isVisible() && !place.isEmpty())
                    texts.append({text->property("text").toString(), place});
            }
            ASSERT_GT(texts.size(), 20);
            for (int i = 0; i < texts.size(); ++i) {
                EXPECT_GE(texts[i].second.left(), 0);
                EXPECT_LE(texts[i].second.right(), width);
                for (int j = i + 1; j < texts.size(); ++j)
                    EXPECT_FALSE(texts[i].second.intersects(texts[j].second))
                        << texts[i].first.left(20).toStdString() << " / "
                        << texts[j].first.left(20).toStdString();
            }
        }
    }
}

} // namespace

} // namespace corvane
