#include "App/NoticeWindow.h"
#include "Picture.h"
#include "WindowTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// What goes wrong, as the workspace shows it in the smallest window.
class WorkspacePicturesTest : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        window->resize(860, 560);
    }

    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }

    [[nodiscard]] testing::AssertionResult screenLooksAs(const QString& name)
    {
        settle();
        return looksAs(u"tests/Pictures/"_s + name, window->grabWindow());
    }
};

TEST_F(WorkspacePicturesTest, LongErrorBesideAllPickersAndAProblemWithSaving)
{
    demo().setViewMode(RouteViewMode::list);
    ASSERT_TRUE(QDir().mkdir(dataPath(u"labels.json"_s)));
    demo().rename(PortKind::source, 0, u"Desk"_s);
    demo().setLastError(u"The router refused the route: MON 1 is protected by the panel in studio B."_s);
    EXPECT_TRUE(screenLooksAs(u"long-error"_s));
}

TEST_F(WorkspacePicturesTest, WaitingForARouter)
{
    wear(Appearance::dark);
    const auto ultrix = u"Ultrix Main"_s;
    store->setSelectedConnectionID(router(ultrix).id);
    settle();
    report(ultrix, driverEvent::Status{u"Waiting for router… (Connection refused)"_s});
    EXPECT_TRUE(screenLooksAs(u"waiting"_s));
}

TEST_F(WorkspacePicturesTest, StagedAndLocked)
{
    wear(Appearance::dark);
    demo().setTakeMode(TakeMode::confirm);
    demo().stageRoute(8, 4);
    demo().toggleLock(4);
    EXPECT_TRUE(screenLooksAs(u"staged-and-locked"_s));
}

TEST_F(WorkspacePicturesTest, Notice)
{
    const auto text = u"A copy of Corvane is already running (process 4711) but doesn't answer."
                      " End it, then start Corvane again."_s;
    for (const auto appearance : {Appearance::light, Appearance::dark}) {
        wear(appearance);
        NoticeWindow notice(u"Corvane Doesn't Answer"_s, text);
        notice.show();
        const auto name = appearance == Appearance::dark ? u"notice-dark"_s : u"notice"_s;
        EXPECT_TRUE(looksAs(u"tests/Pictures/"_s + name, notice.grabWindow()));
    }
}

} // namespace

} // namespace corvane
