#include "App/MainWindow.h"

#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>

#include <chrono>

Q_IMPORT_QML_PLUGIN(Corvane_AppPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SharedPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_GridPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_ListPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_BarPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SalvosPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_SidebarPlugin)
Q_IMPORT_QML_PLUGIN(Corvane_Views_WorkspacePlugin)

namespace corvane {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

constexpr QSize defaultSize{1180, 760};
constexpr QSize smallestSize{860, 560};

} // namespace

MainWindow::MainWindow(SerialQueue& mainQueue, ConnectionStore& store)
    : m_model({.mainQueue = mainQueue, .theme = m_theme, .zoom = m_zoom}, store)
{
    m_defaults.keep(m_zoom);
    setMinimumSize(smallestSize);
    resize(defaultSize);
    connect(
        &m_model, &ContentViewModel::windowTitleChanged, this, [this] { setTitle(m_model.windowTitle()); });
    setTitle(m_model.windowTitle());
    connect(&m_theme, &GlassKit::paletteChanged, this, [this] { setColor(m_theme.palette().window); });
    setColor(m_theme.palette().window);
    startOnceUp(mainQueue);
    showContent();
}

MainWindow::~MainWindow()
{
    // The screens look at the model, which is gone before the view's own end.
    setSource({});
}

void MainWindow::comeForward()
{
    // Only that: a window that was full screen before is so again.
    setWindowStates(windowStates().setFlag(Qt::WindowMinimized, false));
    raise();
    requestActivate();
}

void MainWindow::showContent()
{
    m_theme.serve(*engine());
    setResizeMode(SizeRootObjectToView);
    engine()->addImportPath(u"qrc:/qt/qml"_s);
    setInitialProperties({{u"model"_s, QVariant::fromValue(&m_model)}});
    setSource(QUrl(u"qrc:/qt/qml/Corvane/App/ContentView.qml"_s));
    connect(this, &QQuickWindow::activeFocusItemChanged, this, &MainWindow::returnKeyboard);
}

/// A menu or a dialog that closes leaves the keyboard to nobody; it goes back to where it was.
void MainWindow::returnKeyboard()
{
    if (rootObject() && activeFocusItem() == contentItem())
        rootObject()->setFocus(true, Qt::PopupFocusReason);
}

void MainWindow::startOnceUp(SerialQueue& mainQueue)
{
    const auto start = [this] { m_model.windowIsUp(); };
    connect(this, &QQuickWindow::frameSwapped, this, start, Qt::SingleShotConnection);
    // A window that comes up minimized draws no frame, and the routers are wanted all the same.
    mainQueue.after(1s, [this, guard = QPointer(this)] {
        if (guard)
            m_model.windowIsUp();
    });
}

} // namespace corvane
