#include "WindowTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using WorkspaceWindowTest = WindowTest;

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

} // namespace

} // namespace corvane
