#pragma once

#include "App/ContentViewModel.h"
#include "Controllers/ConnectionStore.h"
#include "Views/Shared/UserDefaults.h"

#include <QQuickView>

#include <memory>

namespace corvane {

/// The main window, with the engine that runs its screens.
class MainWindow : public QQuickView {
    Q_OBJECT

public:
    /// Both must outlive the window.
    MainWindow(SerialQueue& mainQueue, ConnectionStore& store);
    ~MainWindow() override;

    void comeForward();

private:
    void showContent();
    void startOnceUp(SerialQueue& mainQueue);
    void returnKeyboard();

    UserDefaults m_defaults;
    MatrixZoom m_zoom;
    GlassKit m_theme{nullptr};
    ContentViewModel m_model;
};

} // namespace corvane
