#include "QmlTest.h"

#include "Theme/MatrixZoom.h"
#include "Views/Workspace/WorkspaceModel.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class TitleBarQmlTest : public QmlTest {
protected:
    void show(const QString& name, const QString& panelName)
    {
        router.name = name;
        controller = makeController();
        connectTo(matrix(4, 4));
        const SubPanel panel{.name = panelName, .sourceIndices = {0}, .destinationIndices = {0}};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
        model =
            std::make_unique<WorkspaceModel>(WorkspaceModel::Environment{queue, theme, zoom}, *controller);
        load(u"Workspace/TitleBar.qml"_s, {900, 52}, {{u"model"_s, QVariant::fromValue(model.get())}});
    }

    void TearDown() override { window.setSource({}); }

    GlassKit theme{nullptr};
    MatrixZoom zoom;
    std::unique_ptr<WorkspaceModel> model;
};

TEST_F(TitleBarQmlTest, SwitchesTheViewThroughTheAccessibilityTree)
{
    show(u"Studio"_s, u"Gallery"_s);
    ASSERT_NE(find(QAccessible::Grouping, u"View"_s), nullptr);
    EXPECT_NE(find(QAccessible::Button, u"Gallery"_s), nullptr);
    QAccessibleInterface* const list = find(QAccessible::RadioButton, u"Dropdown"_s);
    ASSERT_NE(list, nullptr);
    EXPECT_FALSE(list->state().checked);
    pressOn(list);
    EXPECT_EQ(controller->viewMode(), RouteViewMode::list);
    EXPECT_TRUE(list->state().checked);
}

TEST_F(TitleBarQmlTest, HasRoomForItsNameAtAnyWidth)
{
    show(QString(200, u'W'), QString(200, u'M'));
    for (const int width : {500, 580, 700, 900, 3000}) {
        SCOPED_TRACE(width);
        resize({width, 52});
        QQuickItem* const toolbar = items("Toolbar_").constFirst();
        const QRectF bar = toolbar->mapRectToScene(toolbar->boundingRect());
        EXPECT_LE(bar.right(), width - 16);
        QQuickItem* const title = items("SpokenText_").constFirst();
        const QRectF name = title->mapRectToScene(title->boundingRect());
        EXPECT_GE(name.width(), 120);
        EXPECT_LT(name.right(), bar.left());
        EXPECT_NE(find(QAccessible::Button, u"Salvos"_s), nullptr) << "with or without its text";
    }
}

TEST_F(TitleBarQmlTest, TheToolbarGoesWithTheConnection)
{
    show(u"Studio"_s, u"Gallery"_s);
    EXPECT_FALSE(items("Toolbar_").isEmpty());
    report(driverEvent::Disconnected{});
    EXPECT_TRUE(items("Toolbar_").isEmpty());
}

} // namespace

} // namespace corvane
