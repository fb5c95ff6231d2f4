#include "App/ContentViewModel.h"
#include "StoreTest.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class ContentViewModelTest : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        model = std::make_unique<ContentViewModel>(WorkspaceModel::Environment{queue, theme, zoom}, *store);
    }

    MatrixZoom zoom;
    std::unique_ptr<ContentViewModel> model;
};

TEST_F(ContentViewModelTest, OpensTheSelectedRouter)
{
    ASSERT_NE(model->workspace(), nullptr);
    EXPECT_EQ(model->workspace()->controller(), &store->controller(demo()));
    EXPECT_EQ(model->windowTitle(), u"Demo"_s);
    EXPECT_EQ(model->workspaces(), QVariantList{QVariant::fromValue(model->workspace())});
}

TEST_F(ContentViewModelTest, EachSelectionOpensANewWorkspaceOnTheSameRouter)
{
    const QPointer first = model->workspace();
    model->sidebar()->press(1);
    EXPECT_EQ(model->windowTitle(), u"Studio"_s);
    comeUp(demo());
    model->sidebar()->press(0);
    EXPECT_NE(model->workspace(), first);
    EXPECT_TRUE(model->workspace()->content().isConnected);
}

TEST_F(ContentViewModelTest, AnotherRouterDropsTheRenameThatWasOpen)
{
    comeUp(demo());
    auto& controller = store->controller(demo());
    controller.beginRename(PortKind::source, 0);
    model->sidebar()->press(1);
    EXPECT_EQ(controller.renameTarget(), std::nullopt);
}

TEST_F(ContentViewModelTest, AWorkspaceOutlivesTheScreensThatShowedIt)
{
    const QPointer first = model->workspace();
    bool wasThere = false;
    QObject::connect(
        model.get(), &ContentViewModel::workspaceChanged, model.get(), [&] { wasThere = first; });
    model->sidebar()->press(1);
    EXPECT_TRUE(wasThere);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(first);
}

TEST_F(ContentViewModelTest, AnEditedRouterKeepsItsWorkspaceAndConnectsAnew)
{
    comeUp(demo());
    const auto* workspace = model->workspace();
    auto edited = demo();
    edited.name = u"Demo B"_s;
    store->update(edited);
    EXPECT_EQ(model->workspace(), workspace);
    EXPECT_EQ(model->windowTitle(), u"Demo B"_s);
    EXPECT_FALSE(workspace->content().isConnected);
    queue.runReady();
    EXPECT_EQ(store->controller(demo()).status(), ConnectionStatus(Connecting{}));
}

TEST_F(ContentViewModelTest, WithoutARouterThereIsNoWorkspace)
{
    Tellings titles(*model, &ContentViewModel::windowTitleChanged);
    store->remove(demo());
    EXPECT_EQ(model->windowTitle(), u"Studio"_s);
    store->remove(studio());
    EXPECT_EQ(model->workspace(), nullptr);
    EXPECT_TRUE(model->workspaces().isEmpty());
    EXPECT_EQ(model->windowTitle(), u"Corvane"_s);
    EXPECT_GE(titles.count(), 2);
}

TEST_F(ContentViewModelTest, AnotherRoutersEditLeavesTheWorkspaceAlone)
{
    Tellings workspaces(*model, &ContentViewModel::workspaceChanged);
    auto edited = studio();
    edited.name = u"Studio B"_s;
    store->update(edited);
    EXPECT_EQ(workspaces.count(), 0);
    EXPECT_EQ(model->windowTitle(), u"Demo"_s);
}

TEST_F(ContentViewModelTest, HardwareConnectsOnceTheWindowIsUp)
{
    queue.runReady();
    EXPECT_EQ(store->controller(studio()).status(), ConnectionStatus(Disconnected{}));
    model->windowIsUp();
    EXPECT_EQ(store->controller(studio()).status(), ConnectionStatus(Connecting{}));
}

} // namespace

} // namespace corvane
