#pragma once

#include "Views/Grid/CrosspointMatrixView.h"
#include "support/ControllerTest.h"

#include <QCoreApplication>
#include <QQuickWindow>

namespace corvane {

/// A grid in a window that nobody sees.
class GridViewTest : public ControllerTest {
protected:
    void SetUp() override
    {
        window.resize(800, 500);
        window.setColor(theme.palette().window);
        view.setSize(QSizeF(800, 500));
        view.setParentItem(window.contentItem());
        window.show();
        view.setModel(&model);
    }

    void show(const RouterState& state)
    {
        connectTo(state);
        model.setController(controller.get());
        frame();
    }

    /// Draws, and says what is to be seen.
    QImage frame() { return window.grabWindow(); }

    /// Pictures painted for the next frame.
    qint64 paintedInFrame()
    {
        const qint64 before = view.paintedCount();
        frame();
        return view.paintedCount() - before;
    }

    [[nodiscard]] QPointF centre(GridPlace place) const { return view.layout().rectOf(place).center(); }

    void mouse(QEvent::Type type, QPointF point, Qt::MouseButton button = Qt::LeftButton)
    {
        const bool isUp = type == QEvent::MouseButtonRelease;
        QMouseEvent event(
            type, point, view.mapToGlobal(point), button, isUp ? Qt::NoButton : button, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    }

    void click(QPointF point)
    {
        mouse(QEvent::MouseButtonPress, point);
        mouse(QEvent::MouseButtonRelease, point);
    }

    void doubleClick(QPointF point)
    {
        click(point);
        mouse(QEvent::MouseButtonDblClick, point);
        mouse(QEvent::MouseButtonRelease, point);
    }

    /// Whether the grid took the key for itself.
    bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&view, &event);
        return event.isAccepted();
    }

    void hover(QPointF point)
    {
        QHoverEvent event(QEvent::HoverMove, point, view.mapToGlobal(point), point);
        QCoreApplication::sendEvent(&view, &event);
    }

    GlassKit theme{nullptr};
    CrosspointGridModel model{theme};
    QQuickWindow window;
    CrosspointMatrixView view;
};

} // namespace corvane
