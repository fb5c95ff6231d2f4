#include "Views/Panels/PanelsModel.h"
#include "ViewModelTest.h"

#include "Views/Panels/PanelTexts.h"

namespace corvane {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString textOf(const PanelItem& item)
{
    return item.isActive ? item.name + u'*' : item.name;
}

class PanelsModelTest : public ViewModelTest<PanelsModel> {
protected:
    SubPanel add(
        const QString& name, const QList<qint64>& sources = {0}, const QList<qint64>& destinations = {0})
    {
        const SubPanel panel{.name = name, .sourceIndices = sources, .destinationIndices = destinations};
        controller->savePanel(panel);
        return panel;
    }

    [[nodiscard]] QStringList tabs() { return texts(*model.tabs()); }
    [[nodiscard]] QStringList managed() { return texts(*model.manager()); }
    [[nodiscard]] static QStringList menu(RowListModel& list, int row)
    {
        QStringList texts;
        for (const auto& action : list.menu(row))
            texts << action.text;
        return texts;
    }

private:
    [[nodiscard]] static QStringList texts(const PanelListModel& list)
    {
        QStringList texts;
        for (const auto& item : list.rows())
            texts << textOf(item);
        return texts;
    }
};

TEST_F(PanelsModelTest, ListsTheFullRouterAndThePanelsAndWhichIsActive)
{
    EXPECT_FALSE(model.content().hasPanels);
    const auto a = add(u"A"_s, {0, 1, 2}, {4});
    add(u"B\nC"_s);
    EXPECT_TRUE(model.content().hasPanels);
    EXPECT_THAT(tabs(), ElementsAre(u"All*"_s, u"A"_s, u"B C"_s));

    auto& strip = *model.tabs();
    const auto& items = strip.rows();
    EXPECT_EQ(strip.tip(items[0]), u"Full Router, all ports"_s);
    EXPECT_EQ(strip.menuText(items[0]), u"Full Router"_s);
    EXPECT_EQ(strip.help(items[0]), QString());
    EXPECT_EQ(strip.tip(items[1]), u"3 in × 1 out"_s);
    EXPECT_EQ(strip.menuText(items[1]), u"A"_s);
    EXPECT_EQ(strip.help(items[1]), u"Shows only this panel's ports"_s);

    strip.press(1);
    EXPECT_THAT(tabs(), ElementsAre(u"All"_s, u"A*"_s, u"B C"_s));
    EXPECT_THAT(managed(), ElementsAre(u"A*"_s, u"B C"_s));
    EXPECT_EQ(model.manager()->speech(0).description, u"3 in × 1 out, Active"_s);
    strip.activate(3);
    EXPECT_EQ(controller->activePanelID(), a.id);
    strip.press(0);
    EXPECT_EQ(controller->activePanelID(), std::nullopt);
}

TEST_F(PanelsModelTest, BringsTheTabOfAPanelIntoViewWhenItBecomesActive)
{
    add(u"A"_s);
    const auto b = add(u"B"_s);
    QList<int> wanted;
    QObject::connect(model.tabs(), &RowListModel::rowWanted, model.tabs(), [&](int row) { wanted << row; });
    controller->setActivePanelID(b.id);
    controller->setActivePanelID(std::nullopt);
    add(u"C"_s);
    EXPECT_THAT(wanted, ElementsAre(2));

    PanelTabStripModel late;
    QObject::connect(&late, &RowListModel::rowWanted, &late, [&](int row) { wanted << row; });
    controller->setActivePanelID(b.id);
    late.setController(controller.get());
    EXPECT_THAT(wanted, ElementsAre(2, 2));
}

TEST_F(PanelsModelTest, FollowsAnotherControllerOfTheSameRouter)
{
    const auto a = add(u"A"_s);
    controller->setActivePanelID(a.id);
    const auto edited = makeController();
    edited->setActivePanelID(std::nullopt);
    model.setController(edited.get());
    EXPECT_THAT(tabs(), ElementsAre(u"All*"_s, u"A"_s));
    EXPECT_THAT(managed(), ElementsAre(u"A"_s));
}

TEST_F(PanelsModelTest, OffersWhatCanBeDoneWithATabAndARow)
{
    add(u"A"_s);
    EXPECT_THAT(menu(*model.manager(), 0), ElementsAre(u"Edit…"_s, u"Duplicate"_s, u"Delete"_s));
    add(u"B"_s);
    add(u"C"_s);
    EXPECT_THAT(menu(*model.tabs(), 0), IsEmpty());
    EXPECT_THAT(menu(*model.tabs(), 1), ElementsAre(u"Edit Panel…"_s, u"Duplicate"_s, u"Delete"_s));
    EXPECT_THAT(
        menu(*model.manager(), 0), ElementsAre(u"Edit…"_s, u"Duplicate"_s, u"Move Down"_s, u"Delete"_s));
    EXPECT_THAT(menu(*model.manager(), 1),
        ElementsAre(u"Edit…"_s, u"Duplicate"_s, u"Move Up"_s, u"Move Down"_s, u"Delete"_s));
    EXPECT_THAT(
        menu(*model.manager(), 2), ElementsAre(u"Edit…"_s, u"Duplicate"_s, u"Move Up"_s, u"Delete"_s));

    runAction(model.manager()->menu(0), u"Move Down"_s);
    EXPECT_THAT(managed(), ElementsAre(u"B"_s, u"A"_s, u"C"_s));
    runAction(model.manager()->menu(2), u"Move Up"_s);
    EXPECT_THAT(managed(), ElementsAre(u"B"_s, u"C"_s, u"A"_s));
    model.manager()->moveRow(0, 3);
    EXPECT_THAT(managed(), ElementsAre(u"C"_s, u"A"_s, u"B"_s));

    model.tabs()->press(1);
    model.tabs()->chooseInMenu(1, u"Duplicate"_s);
    EXPECT_THAT(tabs(), ElementsAre(u"All"_s, u"C*"_s, u"A"_s, u"B"_s, u"C Copy"_s));
}

TEST_F(PanelsModelTest, OpensTheEditor)
{
    const auto a = add(u"A"_s);
    model.manager()->press(0);
    EXPECT_EQ(model.editor()->name(), u"A"_s);
    EXPECT_EQ(model.editor()->content().title, u"Edit Panel"_s);
    model.editor()->cancel();
    model.editActivePanel();
    EXPECT_FALSE(model.editor()->content().isShown);
    controller->setActivePanelID(a.id);
    model.editActivePanel();
    EXPECT_TRUE(model.editor()->content().isShown);
    model.addPanel();
    EXPECT_EQ(model.editor()->name(), u"Panel 2"_s);
    EXPECT_EQ(model.editor()->content().title, u"New Panel"_s);
    model.openManager();
    EXPECT_TRUE(model.content().showsManager);
    model.closeManager();
    EXPECT_FALSE(model.content().showsManager);
}

TEST_F(PanelsModelTest, AsksBeforeItDeletes)
{
    const auto a = add(u"A “1”\n"_s);
    runAction(model.tabs()->menu(1), u"Delete"_s);
    EXPECT_TRUE(model.content().isDeleting);
    EXPECT_EQ(model.content().deleteTitle, u"Delete “A “1””?"_s);
    EXPECT_EQ(model.content().deleteMessage, panelTexts::deleteMessage(0));
    model.cancelDelete();
    EXPECT_FALSE(model.content().isDeleting);

    const auto menu = model.manager()->menu(0);
    runAction(menu, u"Delete"_s);
    controller->deletePanel(a);
    EXPECT_FALSE(model.content().isDeleting);
    model.confirmDelete();
    // What was offered before is done to no other panel.
    const auto b = add(u"B"_s);
    for (const auto* const text : {u"Delete", u"Edit…", u"Duplicate"})
        runAction(menu, QString::fromUtf16(text));
    EXPECT_FALSE(model.content().isDeleting);
    EXPECT_FALSE(model.editor()->content().isShown);
    EXPECT_THAT(controller->panels(), ElementsAre(b));

    runAction(model.manager()->menu(0), u"Delete"_s);
    model.confirmDelete();
    EXPECT_THAT(controller->panels(), IsEmpty());
}

TEST(PanelTextsTest, AgreeWithTheirCounts)
{
    EXPECT_EQ(panelTexts::missing(0), QString());
    EXPECT_EQ(panelTexts::missing(1), u"1 saved port not on this router — kept for when it returns."_s);
    EXPECT_EQ(panelTexts::missing(2), u"2 saved ports not on this router — kept for when it returns."_s);
    EXPECT_EQ(panelTexts::deleteMessage(0),
        u"Routing is not affected — only this saved panel layout is removed."_s);
    EXPECT_EQ(panelTexts::deleteMessage(1),
        u"Routing is not affected. Also deletes 1 salvo saved for this panel — they cannot be recovered."_s);
    EXPECT_EQ(panelTexts::deleteMessage(3),
        u"Routing is not affected. Also deletes 3 salvos saved for this panel — they cannot be recovered."_s);
    EXPECT_EQ(panelTexts::missingPort(std::numeric_limits<qint64>::max()),
        u"Port 9223372036854775808 — not on this router"_s);
    EXPECT_EQ(panelTexts::missingPort(-3), u"Port -2 — not on this router"_s);
}

} // namespace

} // namespace corvane
