#include "WindowTest.h"

#include "Theme/SpokenAlert.h"

#include <QMouseEvent>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr QSize smallest{860, 560};

/// Notes what interrupts a screen reader.
class HeardAlerts {
public:
    HeardAlerts()
    {
        SpokenAlert::sendBy([this](QAccessibleEvent& event) {
            const auto* const item = event.accessibleInterface();
            if (event.type() == QAccessible::Alert && item->role() == QAccessible::AlertMessage
                && !item->state().invisible)
                m_names.append(item->text(QAccessible::Name));
        });
    }
    ~HeardAlerts() { SpokenAlert::sendBy({}); }
    HeardAlerts(const HeardAlerts&) = delete;
    HeardAlerts& operator=(const HeardAlerts&) = delete;

    /// Since the last call.
    [[nodiscard]] QStringList taken() { return std::exchange(m_names, {}); }

private:
    QStringList m_names;
};

class WorkspaceWindowTest : public WindowTest {
protected:
    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }

    [[nodiscard]] QAccessibleInterface* banner() const { return find(QAccessible::AlertMessage); }

    void tell(const QString& error)
    {
        demo().setLastError(error);
        settle();
    }
    void moveTo(QPoint place)
    {
        QMouseEvent event(
            QEvent::MouseMove, place, window->mapToGlobal(place), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &event);
        settle();
    }
    void wait(Duration duration)
    {
        queue.advance(duration);
        settle();
    }
};

TEST_F(WorkspaceWindowTest, WhyThereIsNoConnectionIsReadInTheMiddleUntilTheNextAttempt)
{
    const auto name = u"MX2 Conference"_s;
    const auto late = u"The router didn't answer within 12 seconds."_s;
    store->setSelectedConnectionID(router(name).id);
    settle();
    const auto middle = window->mapToGlobal(QPoint(280 + (window->width() - 280) / 2, window->height() / 2));
    const auto readsInTheMiddle = [&](const QString& text) {
        return std::ranges::any_of(findAll(QAccessible::StaticText), [&](const auto* each) {
            const auto off = each->rect().center() - middle;
            return each->text(QAccessible::Name) == text && std::abs(off.x()) <= 1 && std::abs(off.y()) < 100;
        });
    };
    EXPECT_TRUE(readsInTheMiddle(u"Connection refused"_s));
    act(find(QAccessible::Button, u"Connect"_s), QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(readsInTheMiddle(u"Connection refused"_s));
    report(name, driverEvent::Status{u"Waiting for router… (Connection refused)"_s});
    settle();
    EXPECT_TRUE(readsInTheMiddle(u"Waiting for router… (Connection refused)"_s));
    report(name, driverEvent::Error{late});
    report(name, driverEvent::Disconnected{});
    settle();
    EXPECT_TRUE(readsInTheMiddle(late));
}

TEST_F(WorkspaceWindowTest, AnErrorCoversNothingThatCanBePressed)
{
    const auto inList = [this] { demo().setViewMode(RouteViewMode::list); };
    const std::function<void()> views[] = {[] {}, inList};
    for (const auto size : {QSize(1180, 760), smallest})
        for (const auto& show : views) {
            window->resize(size);
            show();
            tell(u"OUT 1 is locked."_s);
            const int oneLine = banner()->rect().height();
            tell(QString(300, u'W') + QString(u" wide"_s).repeated(100));
            ASSERT_NE(banner(), nullptr);
            EXPECT_GE(banner()->rect().height(), oneLine) << "three lines";
            for (const auto role : {QAccessible::Button, QAccessible::RadioButton, QAccessible::ListItem})
                for (const auto* each : findAll(role))
                    EXPECT_FALSE(each->rect().intersects(banner()->rect()))
                        << each->text(QAccessible::Name).toStdString();
        }
}

TEST_F(WorkspaceWindowTest, AnErrorStaysAsLongAsThePointerOrTheKeyboardIsOnIt)
{
    const auto nowhere = QPoint(5, window->height() - 5);
    tell(u"Refused"_s);
    moveTo(window->mapFromGlobal(banner()->rect().center()));
    wait(1h);
    ASSERT_NE(banner(), nullptr);
    moveTo(nowhere);
    wait(3s);
    EXPECT_NE(banner(), nullptr);
    wait(1s);
    EXPECT_EQ(banner(), nullptr);

    demo().setTakeMode(TakeMode::confirm);
    demo().stageRoute(3, 0);
    const QAccessibleInterface* before = nullptr;
    tell(u"Refused"_s);
    for (int i = 0; i < 20 && focused() != banner(); ++i)
        before = focused(), press(Qt::Key_Tab);
    ASSERT_EQ(focused(), banner());
    wait(1h);
    ASSERT_NE(banner(), nullptr);
    press(Qt::Key_Return);
    EXPECT_EQ(banner(), nullptr);
    EXPECT_EQ(focused(), before);
    EXPECT_TRUE(demo().pendingTake()) << "Return was the banner's";
}

TEST_F(WorkspaceWindowTest, WhatHappensOnAnErrorEndsThere)
{
    demo().setTakeMode(TakeMode::confirm);
    tell(u"Refused"_s);
    const auto before = demo().operatorState();
    click(Qt::RightButton, *banner());
    EXPECT_NE(banner(), nullptr);
    click(Qt::LeftButton, *banner());
    EXPECT_EQ(banner(), nullptr);
    EXPECT_EQ(demo().lastError(), std::nullopt);
    EXPECT_EQ(demo().operatorState(), before);
}

TEST_F(WorkspaceWindowTest, AScreenReaderIsInterruptedOnceForEachError)
{
    HeardAlerts alerts;
    tell(u"one"_s);
    EXPECT_EQ(alerts.taken(), QStringList(u"one"_s));
    tell(u"one"_s);
    wear(Appearance::dark);
    settle();
    EXPECT_EQ(alerts.taken(), QStringList());
    tell(u"two"_s);
    EXPECT_EQ(alerts.taken(), QStringList(u"two"_s));
    act(banner(), QAccessibleActionInterface::pressAction());
    EXPECT_EQ(demo().lastError(), std::nullopt);
    tell(u"two"_s);
    EXPECT_EQ(alerts.taken(), QStringList(u"two"_s));
}

TEST_F(WorkspaceWindowTest, WhatCouldNotBeSavedIsToldUntilItIsOrIsPutAway)
{
    const auto text = u"Not saved: labels.json (Is a directory)"_s;
    const auto labels = dataPath(u"labels.json"_s);
    const auto rename = [this](const QString& name) {
        demo().rename(PortKind::source, 0, name);
        settle();
    };
    HeardAlerts alerts;
    ASSERT_TRUE(QDir().mkdir(labels));
    rename(u"A"_s);
    EXPECT_EQ(alerts.taken(), QStringList(text));
    store->setSelectedConnectionID(std::nullopt);
    rename(u"B"_s);
    wait(1h);
    EXPECT_NE(find(QAccessible::AlertMessage, text), nullptr);
    EXPECT_EQ(alerts.taken(), QStringList());
    QDir().rmdir(labels);
    rename(u"C"_s);
    EXPECT_EQ(find(QAccessible::AlertMessage), nullptr);

    QFile::remove(labels);
    ASSERT_TRUE(QDir().mkdir(labels));
    store->setSelectedConnectionID(demo().id());
    rename(u"D"_s);
    EXPECT_EQ(alerts.taken(), QStringList(text));
    const QAccessibleInterface* before = nullptr;
    for (int i = 0; i < 20 && (!focused() || focused()->text(QAccessible::Name) != u"Dismiss"_s); ++i)
        before = focused(), press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_EQ(find(QAccessible::AlertMessage), nullptr);
    EXPECT_EQ(focused(), before);
    rename(u"E"_s);
    EXPECT_EQ(alerts.taken(), QStringList());
}

} // namespace

} // namespace corvane
