#pragma once

#include "Views/DestinationPaneModel.h"
#include "Views/PaneRows.h"
#include "support/ControllerTest.h"

#include <QCoreApplication>
#include <QQuickWindow>

namespace corvane {

/// The rows of a pane of destinations in a window that nobody sees; they scroll as they want to.
class PaneRowsTest : public ControllerTest {
protected:
    void SetUp() override
    {
        window.resize(300, 400);
        rows.setParentItem(window.contentItem());
        rows.setSize(QSizeF(300, 400));
        rows.setRowHeight(44);
        rows.setModel(&model);
        QObject::connect(&rows, &PaneRows::scrollWanted, &rows, &PaneRows::setScroll);
        window.show();
    }

    void show(const RouterState& state)
    {
        connectTo(state);
        model.setController(controller.get());
        window.grabWindow();
    }

    /// Whether the rows took the key for themselves.
    bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool isRepeat = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, {}, isRepeat);
        QCoreApplication::sendEvent(&rows, &event);
        return event.isAccepted();
    }

    QQuickWindow window;
    DestinationPaneModel model;
    PaneRows rows;
};

} // namespace corvane
