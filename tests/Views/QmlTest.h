#pragma once

#include "AccessibleTest.h"
#include "Theme/Fonts.h"
#include "support/ControllerTest.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

namespace corvane {

/// A screen in a window that nobody sees, on a controller that does as the test says. Whatever the QML engine
/// warns of fails the test.
class QmlTest : public ControllerTest {
protected:
    void load(const QString& file, QSize size, const QVariantMap& properties)
    {
        static const bool hasFonts = (Fonts::load(), true);
        ASSERT_TRUE(hasFonts);
        QObject::connect(window.engine(), &QQmlEngine::warnings, &window,
            [](const QList<QQmlError>& errors) { ADD_FAILURE() << errors.first().toString().toStdString(); });
        window.engine()->addImportPath(QStringLiteral(":/qt/qml"));
        window.setResizeMode(QQuickView::SizeRootObjectToView);
        window.resize(size);
        window.setInitialProperties(properties);
        window.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Corvane/Views/") + file));
        window.show();
        draw();
        // A screen reader comes along; buttons can now be pressed by it.
        QAccessible::setActive(true);
    }

    /// Lays everything out.
    void draw() { window.grabWindow(); }

    void resize(QSize size)
    {
        window.resize(size);
        window.rootObject()->setSize(size);
        draw();
    }

    /// What a screen reader finds by this name, the first from the top.
    [[nodiscard]] QAccessibleInterface* find(QAccessible::Role role, const QString& name)
    {
        return find(QAccessible::queryAccessibleInterface(&window), role, name);
    }

    [[nodiscard]] static QAccessibleInterface* find(
        QAccessibleInterface* in, QAccessible::Role role, const QString& name)
    {
        if (in->role() == role && in->text(QAccessible::Name) == name)
            return in;
        for (int i = 0; i < in->childCount(); ++i)
            if (QAccessibleInterface* const found = find(in->child(i), role, name))
                return found;
        return nullptr;
    }

    /// All items of a type, by the beginning of its name.
    [[nodiscard]] QList<QQuickItem*> items(const char* type) const
    {
        QList<QQuickItem*> found;
        collect(window.rootObject(), type, found);
        return found;
    }

    void click(QPointF point, Qt::MouseButton button = Qt::LeftButton)
    {
        m_time += 1000;
        clickAgain(point, button);
    }

    /// So soon that it is the second one of a double click.
    void clickAgain(QPointF point, Qt::MouseButton button = Qt::LeftButton)
    {
        m_time += 100;
        mouse(QEvent::MouseButtonPress, point, button, button);
        mouse(QEvent::MouseButtonRelease, point, button, Qt::NoButton);
    }

    void turnWheel(QPointF point, int pixels)
    {
        QWheelEvent event(point, window.mapToGlobal(point), QPoint(0, pixels), QPoint(0, pixels),
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window, &event);
    }

    bool press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
        return event.isAccepted();
    }

    [[nodiscard]] static QPointF centre(const QQuickItem* item)
    {
        return item->mapToScene(item->boundingRect().center());
    }

    QQuickView window;

private:
    static void collect(QQuickItem* in, const char* type, QList<QQuickItem*>& found)
    {
        if (QByteArray(in->metaObject()->className()).startsWith(type))
            found.append(in);
        for (QQuickItem* const child : in->childItems())
            collect(child, type, found);
    }

    void mouse(QEvent::Type type, QPointF point, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, point, window.mapToGlobal(point), button, buttons, Qt::NoModifier);
        event.setTimestamp(m_time);
        QCoreApplication::sendEvent(&window, &event);
    }

    quint64 m_time = 0;
};

} // namespace corvane
