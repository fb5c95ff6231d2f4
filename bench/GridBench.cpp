#include "Drivers/Simulator/SimulatorDriver.h"
#include "Foundation/EventLoopQueue.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "Theme/Fonts.h"
#include "Views/Grid/CrosspointMatrixView.h"
#include "bench/Process.h"
#include "bench/Row.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QProcess>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTemporaryDir>

#include <iostream>

/// What a frame of the grid costs while it is scrolled, from polishing to the last pixel, with OpenGL and in
/// software.
///
/// Started without arguments it runs itself once for each renderer, for a program can only have one, and once
/// for each measure of memory.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct Size {
    qint64 sources;
    qint64 destinations;
};

constexpr std::array sizes{
    Size{16, 16}, Size{40, 40}, Size{41, 40}, Size{64, 64}, Size{288, 288}, Size{1024, 1024}};
constexpr int framesEach = 120;

/// Draws a window's content into memory, frame by frame when told.
class Renderer {
public:
    explicit Renderer(QSize size) : m_window(&m_control), m_image(size, QImage::Format_RGB32)
    {
        m_window.setGeometry(QRect({0, 0}, size));
        m_window.contentItem()->setSize(size);
        m_window.setColor(GlassPalette::dark().window);
        if (isSoftware())
            m_window.setRenderTarget(QQuickRenderTarget::fromPaintDevice(&m_image));
        else
            useTexture(size);
    }

    ~Renderer() { m_control.invalidate(); }

    [[nodiscard]] QQuickItem& content() { return *m_window.contentItem(); }

    /// Milliseconds.
    double frame()
    {
        QElapsedTimer timer;
        timer.start();
        m_control.polishItems();
        m_control.beginFrame();
        m_control.sync();
        m_control.render();
        m_control.endFrame();
        if (m_context) {
            // Without this the frame would only have been asked for.
            m_context->makeCurrent(&m_surface);
            m_context->functions()->glFinish();
        }
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

private:
    static bool isSoftware() { return QQuickWindow::sceneGraphBackend() == u"software"_s; }

    void useTexture(QSize size)
    {
        if (!m_control.initialize())
            qFatal("OpenGL can't be had here.");
        m_context = static_cast<QOpenGLContext*>(m_window.rendererInterface()->getResource(
            &m_window, QSGRendererInterface::OpenGLContextResource));
        m_surface.setFormat(m_context->format());
        m_surface.create();
        m_context->makeCurrent(&m_surface);
        auto& gl = *m_context->functions();
        GLuint texture = 0;
        gl.glGenTextures(1, &texture);
        gl.glBindTexture(GL_TEXTURE_2D, texture);
        gl.glTexImage2D(
            GL_TEXTURE_2D, 0, GL_RGBA, size.width(), size.height(), 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        m_window.setRenderTarget(QQuickRenderTarget::fromOpenGLTexture(texture, size));
    }

    QQuickRenderControl m_control;
    QQuickWindow m_window;
    QImage m_image;
    QOffscreenSurface m_surface;
    QOpenGLContext* m_context = nullptr;
};

/// A grid of a simulated router.
class Grid {
public:
    Grid(Renderer& renderer, Size size) : m_controller(makeController(size))
    {
        m_controller->connect();
        while (!m_controller->isConnected())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        m_view.setParentItem(&renderer.content());
        m_view.setSize(renderer.content().size());
        m_model.setController(m_controller.get());
        m_view.setModel(&m_model);
    }

    [[nodiscard]] CrosspointMatrixView& view() { return m_view; }
    [[nodiscard]] MatrixController& controller() { return *m_controller; }

private:
    std::shared_ptr<MatrixController> makeController(Size size)
    {
        RouterConnection connection;
        connection.vendor = RouterVendor::simulator;
        connection.simSourceCount = size.sources;
        connection.simDestinationCount = size.destinations;
        const auto driver = [this](const RouterConnection& router) {
            return std::make_shared<SimulatorDriver>(router, m_queue);
        };
        return std::make_shared<MatrixController>(
            connection, MatrixController::Environment{m_queue, driver, m_labels, m_salvos, m_panels});
    }

    QTemporaryDir m_folder;
    MainQueue m_queue;
    LabelStore m_labels{m_folder.path()};
    SalvoStore m_salvos{m_folder.path()};
    PanelStore m_panels{m_folder.path()};
    std::shared_ptr<MatrixController> m_controller;
    GlassKit m_theme{nullptr};
    CrosspointGridModel m_model{m_theme};
    CrosspointMatrixView m_view;
};

/// One step in a direction that turns round at the ends.
double bounced(double from, double& step, double maximum)
{
    if (from + step < 0 || from + step > maximum)
        step = -step;
    return std::clamp(from + step, 0.0, maximum);
}

/// Frames while scrolling to and fro across the field. Empty where everything is in view.
std::vector<double> scroll(Renderer& renderer, CrosspointMatrixView& view)
{
    std::vector<double> frames;
    const QPointF maximum = view.layout().maximumScroll();
    double dx = 17;
    double dy = 11;
    for (int i = 0; i < framesEach && !maximum.isNull(); ++i) {
        const QPointF from = view.layout().scroll;
        view.scrollTo({bounced(from.x(), dx, maximum.x()), bounced(from.y(), dy, maximum.y())});
        frames.push_back(renderer.frame());
    }
    return frames;
}

std::string title(std::string_view renderer, QSize window, Size size)
{
    return std::string(renderer) + " " + std::to_string(window.width()) + "x"
        + std::to_string(window.height()) + ", " + std::to_string(size.sources) + "x"
        + std::to_string(size.destinations);
}

/// The same frames again and again, each as fast as it has been: what else the machine does is not the
/// grid's.
std::vector<double> bestFrames(QSize window, Size size)
{
    constexpr int runs = 3;
    std::vector<double> best;
    for (int run = 0; run < runs; ++run) {
        Renderer renderer(window);
        Grid grid(renderer, size);
        renderer.frame();
        const auto frames = scroll(renderer, grid.view());
        if (best.empty())
            best = frames;
        for (std::size_t i = 0; i < frames.size(); ++i)
            best[i] = std::min(best[i], frames[i]);
    }
    return best;
}

/// The median frame; 0 where there is nothing to scroll.
double measureScrolling(std::string_view renderer, QSize window, Size size)
{
    const auto frames = bestFrames(window, size);
    if (frames.empty())
        return 0;
    const auto name = title(renderer, window, size);
    const auto median = bench::median(frames);
    bench::printRow(name + ", median frame", median, "ms");
    bench::printRow(name + ", worst frame", *std::ranges::max_element(frames), "ms",
        window.width() == 1180 ? "<= 16" : "");
    return median;
}

/// The median frame that follows one route, until the next.
double frameOfRoute(Renderer& renderer, Grid& grid)
{
    std::vector<double> frames;
    for (int i = 0; i < framesEach; ++i) {
        grid.controller().take(i % 8, i % 5);
        frames.push_back(renderer.frame());
    }
    return bench::median(frames);
}

/// How many pictures, of one row's header and cells, one route costs until it has settled, and what its frame
/// costs.
void measureTally(std::string_view rendererName, QSize window)
{
    Renderer renderer(window);
    Grid grid(renderer, sizes.back());
    renderer.frame();
    const auto before = grid.view().paintedCount();
    grid.controller().take(5, 2);
    renderer.frame();
    grid.view().advance(1);
    renderer.frame();
    bench::printRow(std::string(rendererName) + " 1024x1024, pictures painted for one route",
        static_cast<double>(grid.view().paintedCount() - before), "of 1 row", "<= 3");
    bench::printRow(
        std::string(rendererName) + " 1024x1024, frame of one route", frameOfRoute(renderer, grid), "ms");
}

int measureFrames(std::string_view renderer)
{
    for (const QSize window : {QSize(1180, 760), QSize(3840, 2160)}) {
        std::map<qint64, double> medians;
        for (const Size size : sizes)
            medians[size.sources] = measureScrolling(renderer, window, size);
        // A 64x64 does not fill the larger window: only a router that does shows as many cells.
        const qint64 alike = window.width() < 3840 ? 64 : 288;
        bench::printRow(title(renderer, window, sizes.back()) + " against " + std::to_string(alike),
            medians.at(1024) / medians.at(alike), "x", "<= 1.2");
    }
    measureTally(renderer, {1180, 760});
    return 0;
}

/// Prints the number alone, for the process that compares.
int measureMemory(qint64 side)
{
    Renderer renderer({1180, 760});
    Grid grid(renderer, {side, side});
    renderer.frame();
    scroll(renderer, grid.view());
    std::cout << bench::residentMebibytes() << '\n';
    return 0;
}

/// Runs this program again with a renderer of its own, and returns what it prints if that isn't for everyone.
QByteArray runAgain(const QString& renderer, const QStringList& arguments)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    const bool isSoftware = renderer == u"raster"_s;
    environment.insert(u"QT_QUICK_BACKEND"_s, isSoftware ? u"software"_s : QString());
    environment.insert(u"QT_QPA_PLATFORM"_s, isSoftware ? u"offscreen"_s : u"xcb"_s);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), QStringList(renderer) + arguments);
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

void compareMemory(const QString& renderer)
{
    const auto resident = [&](const char* side) {
        return runAgain(renderer, {u"memory"_s, QString::fromLatin1(side)}).trimmed().toDouble();
    };
    const double small = resident("16");
    const double large = resident("1024");
    const std::string name = renderer.toStdString() + " resident memory, ";
    bench::printRow(name + "16x16", small, "MiB");
    bench::printRow(name + "1024x1024 more than that", large - small, "MiB", "<= 60");
}

int measureAll()
{
    for (const QString& renderer : {u"raster"_s, u"OpenGL"_s}) {
        std::cout << runAgain(renderer, {u"frames"_s}).constData() << std::flush;
        compareMemory(renderer);
    }
    return 0;
}

int measure(const QStringList& arguments)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    if (arguments.at(1) == u"raster"_s)
        QQuickWindow::setSceneGraphBackend(u"software"_s);
    Fonts::load();
    if (arguments.at(2) == u"memory"_s)
        return measureMemory(arguments.at(3).toLongLong());
    return measureFrames(arguments.at(1).toStdString());
}

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    if (argc < 3) {
        const QCoreApplication application(argc, argv);
        return corvane::measureAll();
    }
    const QGuiApplication application(argc, argv);
    return corvane::measure(QGuiApplication::arguments());
}
