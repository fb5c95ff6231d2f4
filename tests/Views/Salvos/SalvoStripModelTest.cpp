#include "Views/Salvos/SalvoStripModel.h"
#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class SalvoStripModelTest : public ControllerTest {
protected:
    SalvoStripModelTest() { connectTo(matrix(8, 8)); }

    [[nodiscard]] SalvoLook look(int chip) const
    {
        return model.index(chip).data(SalvoListModel::lookRole).value<SalvoLook>();
    }

    SalvoStripModel model{queue};
};

TEST_F(SalvoStripModelTest, StandsWhereThereAreSalvosOrAPanelOnARouterThatIsUp)
{
    const SubPanel panel{.name = u"Studio"_s, .sourceIndices = {0}, .destinationIndices = {1}};
    controller->savePanel(panel);
    model.setController(controller.get());
    struct Case {
        const char* name;
        std::function<void()> change;
        bool isShown;
        int chips;
        QString noneYet;
        QString tip;
    };
    const Case cases[] = {
        {"nothing", [] {}, false, 0, {}, u"New salvo"_s},
        {"a panel", [&] { controller->setActivePanelID(panel.id); }, true, 0, u"No salvos for “Studio” yet"_s,
            u"New salvo in Studio"_s},
        {"its salvo", [&] { controller->saveSalvo(u"A"_s, panel.id); }, true, 1, {},
            u"New salvo in Studio"_s},
        {"the whole router", [&] { controller->setActivePanelID({}); }, false, 0, {}, u"New salvo"_s},
        {"its salvo too", [&] { controller->saveSalvo(u"A"_s, {}); }, true, 1, {}, u"New salvo"_s},
        {"a drop", [&] { report(driverEvent::Disconnected{}); }, false, 1, {}, u"New salvo"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        c.change();
        EXPECT_EQ(model.content().isShown, c.isShown);
        EXPECT_EQ(model.rowCount(), c.chips);
        EXPECT_EQ(model.content().noneYet, c.noneYet);
        EXPECT_EQ(model.content().newTip, c.tip);
    }
}

TEST_F(SalvoStripModelTest, AChipFiresUpdatesAndDeletesAfterAQuestion)
{
    controller->saveSalvo(u"A"_s, {});
    model.setController(controller.get());
    EXPECT_TRUE(look(0).isInSync);
    EXPECT_TRUE(look(0).canFire);
    controller->take(5, 1);
    (void)told();
    queue.advance(SalvoDiffs::frame);
    EXPECT_FALSE(look(0).isInSync);
    model.press(0);
    EXPECT_EQ(model.dialogs()->fireConfirmation().acceptText, u"Fire — 1 Change"_s);
    model.dialogs()->fire();
    EXPECT_EQ(controller->state().source(1, 0), 1);

    controller->take(5, 1);
    model.choose(0, u"Update from Current Routing…"_s);
    EXPECT_EQ(model.dialogs()->question().title, u"Update “A”?"_s);
    EXPECT_EQ(model.dialogs()->question().message,
        u"Replaces its saved snapshot with the current routing. The old snapshot cannot be recovered."_s);
    model.dialogs()->confirm();
    EXPECT_EQ(controller->salvos().first().routes.at(1), (Route{0, 1, 5}));

    for (const auto& way : {u"menu"_s, u"key"_s}) {
        if (way == u"key"_s)
            model.askToDelete(0);
        else
            model.choose(0, u"Delete Salvo"_s);
        EXPECT_EQ(model.dialogs()->question().title, u"Delete “A”?"_s);
        EXPECT_EQ(model.dialogs()->question().message, u"This salvo cannot be recovered."_s);
        if (way == u"menu"_s)
            model.dialogs()->cancel();
        EXPECT_EQ(controller->salvos().size(), 1);
    }
    model.dialogs()->confirm();
    EXPECT_EQ(model.rowCount(), 0);
    model.press(0);
    EXPECT_FALSE(model.dialogs()->fireConfirmation().isShown);
}

} // namespace

} // namespace corvane
