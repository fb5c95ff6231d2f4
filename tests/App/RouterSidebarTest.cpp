#include "WindowTest.h"
#include <QQuickItem>
namespace corvane {

namespace {
void dump(QAccessibleInterface* i, int d=0) {
    if (d>4) return;
    qDebug().noquote() << QString(d*2, u' ') << i->role() << i->text(QAccessible::Name) << "|" << i->text(QAccessible::Description) << (i->state().focused?"FOCUS":"") << (i->state().selected?"SEL":"") << (i->actionInterface()? i->actionInterface()->actionNames():QStringList());
    for (int c=0;c<std::min(20,i->childCount());++c) if (auto* ch=i->child(c)) dump(ch,d+1);
}
class RouterSidebarTest : public WindowTest {
protected:
};
TEST_F(RouterSidebarTest, Dump)
{
    auto* r = QAccessible::queryAccessibleInterface(window.get());
    dump(r);
    auto say=[&](const char* w) { qDebug().noquote() << w << window->activeFocusItem()->metaObject()->className() << (focused()?focused()->text(QAccessible::Name):QString()); };
    say("start");
    for (int i=0;i<10;++i) {press(Qt::Key_Tab); say("tab");}
    for (int i=0;i<10;++i) {press(Qt::Key_Backtab, Qt::ShiftModifier); say("back");}
    find(QAccessible::ListItem, QStringLiteral("Demo Router"))->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    say("pressed");
    press(Qt::Key_Down);
    say("down");
    press(Qt::Key_Menu);
    say("menu");
    press(Qt::Key_Escape);
    say("esc");
    press(Qt::Key_Delete);
    say("delete");
    dump(r);
    press(Qt::Key_Escape);
    say("esc");
}
}
}
