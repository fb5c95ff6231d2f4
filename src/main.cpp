#include "App/CorvaneApp.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QGuiApplication::setOrganizationName(u"Corvane"_s);
    QGuiApplication::setApplicationName(u"Corvane"_s);
    QGuiApplication::setDesktopFileName(u"corvane"_s);
    const QGuiApplication application(argc, argv);
    return corvane::CorvaneApp().run();
}
