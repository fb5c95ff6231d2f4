#include "App/MainWindow.h"
#include "Drivers/DriverFactory.h"
#include "Foundation/EventLoopQueue.h"
#include "Theme/Fonts.h"
#include "bench/Row.h"

#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQuickView>
#include <QTemporaryDir>

#include <chrono>
#include <iostream>

/// From the start of the process to the first frame on screen: ours against an empty Qt Quick window of the
/// same size. Each start is a process of its own, and the two take turns, so that both meet the machine in
/// the same mood.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

qint64 now()
{
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

/// Says when the first frame was on screen, and ends.
void reportFirstFrame(QQuickWindow& window)
{
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [] {
            std::cout << now() << std::endl;
            std::_Exit(0);
        },
        Qt::DirectConnection);
}

int showEmpty()
{
    QQuickView window;
    reportFirstFrame(window);
    QQmlComponent component(window.engine());
    component.setData("import QtQuick\nItem {}", QUrl(u"qrc:/empty.qml"_s));
    window.setContent(component.url(), &component, component.create());
    window.resize(1180, 760);
    window.show();
    return QGuiApplication::exec();
}

int showCorvane()
{
    Fonts::load();
    MainQueue queue;
    DriverFactory drivers(queue);
    const QTemporaryDir folder;
    ConnectionStore store(
        queue, [&](const auto& router) { return drivers.makeDriver(router); }, folder.path());
    MainWindow window(queue, store);
    reportFirstFrame(window);
    window.show();
    return QGuiApplication::exec();
}

double millisecondsToFirstFrame(const QString& which)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const auto start = now();
    process.start(QCoreApplication::applicationFilePath(), {which});
    process.waitForFinished();
    return static_cast<double>(process.readAllStandardOutput().trimmed().toLongLong() - start) / 1e6;
}

int compare()
{
    std::vector<double> empty;
    std::vector<double> ours;
    for (int run = 0; run < 15; ++run) {
        empty.push_back(millisecondsToFirstFrame(u"empty"_s));
        ours.push_back(millisecondsToFirstFrame(u"corvane"_s));
    }
    bench::printRow("start to first frame, empty Qt Quick window", bench::median(empty), "ms");
    bench::printRow("start to first frame, Corvane", bench::median(ours), "ms");
    bench::printRow(
        "  Corvane against the empty window", bench::median(ours) / bench::median(empty), "x", "<= 1.6");
    return 0;
}

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    if (argc < 2) {
        const QCoreApplication application(argc, argv);
        return corvane::compare();
    }
    const QGuiApplication application(argc, argv);
    return QString::fromLocal8Bit(argv[1]) == u"empty"_s ? corvane::showEmpty() : corvane::showCorvane();
}
