#include "Controllers/MatrixController.h"
#include "Foundation/EventLoopQueue.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "Theme/Fonts.h"
#include "Theme/GlassKit.h"
#include "Views/List/DestinationListModel.h"
#include "bench/BurstDriver.h"
#include "bench/Row.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryDir>

#include <iostream>

Q_IMPORT_QML_PLUGIN(Corvane_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SharedPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_GridPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_ListPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_BarPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SalvosPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SidebarPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_WorkspacePlugin)

/// What it costs to open the list on a router of any size, and to scroll it: from nothing to the first
/// picture, and from picture to picture. Started without arguments it runs itself once for each renderer.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int openings = 9;
constexpr int framesEach = 120;

double milliseconds(const auto& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// A connected router with as many sources as destinations.
class Router {
public:
    explicit Router(qint64 ports)
        : m_driver(std::make_shared<bench::BurstDriver>(bench::largeState(ports))),
          m_controller(std::make_shared<MatrixController>(RouterConnection{},
              MatrixController::Environment{
                  m_queue, [this](const auto&) { return m_driver; }, m_labels, m_salvos, m_panels}))
    {
        m_controller->connect();
        bench::pumpUntil([this] { return m_controller->isConnected(); });
    }

    [[nodiscard]] MatrixController& controller() { return *m_controller; }

private:
    MainQueue m_queue;
    QTemporaryDir m_folder;
    LabelStore m_labels{m_folder.path()};
    SalvoStore m_salvos{m_folder.path()};
    PanelStore m_panels{m_folder.path()};
    std::shared_ptr<bench::BurstDriver> m_driver;
    std::shared_ptr<MatrixController> m_controller;
};

class ListWindow {
public:
    ListWindow()
    {
        m_theme.serve(*m_window.engine());
        m_window.engine()->addImportPath(u"qrc:/qt/qml"_s);
        m_window.setResizeMode(QQuickView::SizeRootObjectToView);
        m_window.resize(900, 640);
        m_window.show();
    }

    void open(MatrixController& controller)
    {
        m_list.setController(&controller);
        m_window.setInitialProperties(
            {{u"model"_s, QVariant::fromValue(&m_list)}, {u"controlBarClearance"_s, 80}});
        m_window.setSource(QUrl(u"qrc:/qt/qml/Corvane/Views/List/DestinationListView.qml"_s));
        m_window.grabWindow();
    }

    void close()
    {
        m_window.setSource({});
        m_list.setController(nullptr);
    }

    /// One picture for each step; in milliseconds.
    std::vector<double> scroll()
    {
        std::vector<double> frames;
        for (int frame = 0; frame < framesEach; ++frame) {
            for (auto* const item : m_window.rootObject()->findChildren<QQuickItem*>()) {
                if (item->property("contentY").isValid())
                    item->setProperty("contentY", 7 * frame % 300);
            }
            frames.push_back(milliseconds([this] { m_window.grabWindow(); }));
        }
        return frames;
    }

private:
    MainQueue m_queue;
    GlassKit m_theme{nullptr};
    DestinationListModel m_list{m_queue, m_theme};
    QQuickView m_window;
};

double medianOpening(ListWindow& window, Router& router)
{
    std::vector<double> times;
    for (int opening = 0; opening < openings; ++opening) {
        times.push_back(milliseconds([&] { window.open(router.controller()); }));
        window.close();
    }
    return bench::median(times);
}

double medianFrame(ListWindow& window, Router& router)
{
    window.open(router.controller());
    const auto median = bench::median(window.scroll());
    window.close();
    return median;
}

int measure(const std::string& renderer)
{
    Fonts::load();
    ListWindow window;
    Router small(16);
    Router medium(64);
    Router large(1024);
    medianOpening(window, small);
    const double smallOpening = medianOpening(window, small);
    const double largeOpening = medianOpening(window, large);
    bench::printRow(renderer + " list, 16+16 ports: open", smallOpening, "ms");
    bench::printRow(renderer + " list, 1024+1024 ports: open", largeOpening, "ms");
    bench::printRow("  more than 16+16", largeOpening - smallOpening, "ms", "< 100");
    const double mediumFrame = medianFrame(window, medium);
    const double largeFrame = medianFrame(window, large);
    bench::printRow(renderer + " list, 1024+1024 ports: scroll, median frame", largeFrame, "ms", "<= 16");
    bench::printRow("  against 64+64", largeFrame / mediumFrame, "x", "<= 1.2");
    return 0;
}

int measureAll(const QString& program)
{
    for (const auto& renderer : {u"raster"_s, u"OpenGL"_s}) {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        if (renderer == u"raster"_s)
            environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(program, {renderer});
        process.waitForFinished(-1);
    }
    return 0;
}

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    if (argc < 2) {
        const QCoreApplication application(argc, argv);
        return corvane::measureAll(QCoreApplication::applicationFilePath());
    }
    const QGuiApplication application(argc, argv);
    return corvane::measure(argv[1]);
}
