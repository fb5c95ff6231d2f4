#include "App/CorvaneApp.h"

#include <QGuiApplication>

int main(int argc, char** argv)
{
    QGuiApplication::setOrganizationName(QStringLiteral("Corvane"));
    QGuiApplication::setApplicationName(QStringLiteral("Corvane"));
    QGuiApplication::setDesktopFileName(QStringLiteral("corvane"));
    const QGuiApplication application(argc, argv);
    return corvane::CorvaneApp().run();
}
