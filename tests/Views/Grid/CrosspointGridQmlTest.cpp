#include "QmlTest.h"

#include "Views/Grid/CrosspointMatrixView.h"

#include <QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Corvane_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SharedPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_GridPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_ListPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_BarPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SalvosPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SidebarPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_WorkspacePlugin)

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class CrosspointGridQmlTest : public QmlTest {
protected:
    void SetUp() override
    {
        connectTo(matrix(64, 64));
        model.setController(controller.get());
        load(u"Grid/CrosspointGrid.qml"_s, {800, 500},
            {{u"model"_s, QVariant::fromValue(&model)}, {u"cellSize"_s, 56}, {u"controlBarClearance"_s, 60}});
        view = window.rootObject()->findChild<CrosspointMatrixView*>();
    }

    [[nodiscard]] QObject* findByClass(const char* className) const
    {
        for (QObject* const object : window.rootObject()->findChildren<QObject*>())
            if (object->inherits(className))
                return object;
        return nullptr;
    }

    static QQuickItem* entry(QObject* menu, int position)
    {
        QQuickItem* item = nullptr;
        QMetaObject::invokeMethod(menu, "itemAt", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, position));
        return item;
    }

    GlassKit theme{nullptr};
    CrosspointGridModel model{theme};
    CrosspointMatrixView* view = nullptr;
};

TEST_F(CrosspointGridQmlTest, ShowsTheMenuThatTheGridAsksForAndDoesWhatIsChosen)
{
    view->setFocusPlace({2, GridPlace::header});
    QKeyEvent menuKey(QEvent::KeyPress, Qt::Key_Menu, Qt::NoModifier);
    QCoreApplication::sendEvent(view, &menuKey);

    QObject* const menu = findByClass("QQuickMenu");
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->property("count"), 2);
    EXPECT_EQ(entry(menu, 1)->property("text"), u"Lock"_s);
    QMetaObject::invokeMethod(entry(menu, 1), "triggered");
    EXPECT_EQ(told(), std::vector<std::string>{"setLock 2 0 true"});
}

TEST_F(CrosspointGridQmlTest, OpensWithTheCellSizeThatWasKept)
{
    EXPECT_EQ(view->layout().cell, 56) << "without a transition from another one";
    view->setCellSize(44);
    EXPECT_EQ(view->layout().cell, 56) << "a change takes its time";
}

TEST_F(CrosspointGridQmlTest, MovesTheScrollBarsWithTheGrid)
{
    std::vector<double> positions;
    view->scrollTo({view->contentWidth(), 0});
    for (QObject* const bar : window.rootObject()->findChildren<QObject*>())
        if (bar->inherits("QQuickScrollBar"))
            positions.push_back(bar->property("position").toDouble() + bar->property("size").toDouble());
    ASSERT_EQ(positions.size(), 2U);
    EXPECT_NEAR(std::ranges::max(positions), 1, 0.001) << "at the end";
    EXPECT_LT(std::ranges::min(positions), 0.2) << "at the top";
}

} // namespace

} // namespace corvane
