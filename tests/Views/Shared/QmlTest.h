#pragma once

#include "AccessibleTest.h"
#include "Theme/Fonts.h"
#include "support/ControllerTest.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

namespace corvane {

using namespace Qt::StringLiterals;

/// A screen in a window that nobody sees, on a controller that does as the test says. Whatever the QML engine
/// warns of fails the test.
class QmlTest : public ControllerTest {
protected:
    /// Screens go before what they show.
    void TearDown() override { window.setSource({}); }

    /// A screen of the program, by its place under Views.
    void load(const QString& file, QSize size, const QVariantMap& properties)
    {
        const QUrl url(u"qrc:/qt/qml/Corvane/Views/"_s + file);
        show(size, properties, [&](QQmlComponent& component) { component.loadUrl(url); });
    }

    /// A screen that only the test has.
    void loadText(const QByteArray& qml, QSize size, const QVariantMap& properties)
    {
        show(size, properties, [&](QQmlComponent& component) { component.setData(qml, {}); });
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

    /// Presses at one point and lets go at another.
    void drag(QPointF from, QPointF to)
    {
        m_time += 1000;
        mouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        for (int step = 1; step <= 10; ++step)
            mouse(QEvent::MouseMove, from + (to - from) * step / 10, Qt::NoButton, Qt::LeftButton);
        draw();
        mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    }

    void hover(QPointF point)
    {
        mouse(QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton);
        draw();
    }

    void turnWheel(QPointF point, int pixels)
    {
        QWheelEvent event(point, window.mapToGlobal(point), QPoint(0, pixels), QPoint(0, pixels),
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window, &event);
    }

    /// Whether anything took the key for itself.
    bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool isRepeat = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, {}, isRepeat);
        QCoreApplication::sendEvent(&window, &event);
        return event.isAccepted();
    }

    void release(int key)
    {
        QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
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

    void show(QSize size, const QVariantMap& properties, const std::function<void(QQmlComponent&)>& fill)
    {
        static const bool hasFonts = (Fonts::load(), true);
        ASSERT_TRUE(hasFonts);
        QObject::connect(window.engine(), &QQmlEngine::warnings, &window,
            [](const QList<QQmlError>& errors) { ADD_FAILURE() << errors.first().toString().toStdString(); });
        window.engine()->addImportPath(u":/qt/qml"_s);
        window.setResizeMode(QQuickView::SizeRootObjectToView);
        window.resize(size);
        // The window owns it.
        auto* const component = std::make_unique<QQmlComponent>(window.engine(), &window).release();
        fill(*component);
        ASSERT_TRUE(component->isReady()) << component->errorString().toStdString();
        QObject* const root = component->createWithInitialProperties(properties);
        window.setContent({}, component, root);
        window.show();
        draw();
        // A screen reader comes along; buttons can now be pressed by it.
        QAccessible::setActive(true);
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
