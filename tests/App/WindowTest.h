#pragma once

#include "App/MainWindow.h"
#include "support/FakeDriver.h"
#include "support/Files.h"
#include "support/ManualQueue.h"

#include <QAccessible>
#include <QAnimationDriver>
#include <QPalette>

#include <gmock/gmock.h>

namespace corvane {

/// Moves what is animated, and only when it is told to.
class SteppedAnimations final : public QAnimationDriver {
public:
    SteppedAnimations() { install(); }
    void step(std::chrono::milliseconds duration);
    [[nodiscard]] qint64 elapsed() const override { return m_elapsed; }

private:
    qint64 m_elapsed = 0;
};

/// The program's window on five saved routers. "Demo Router" is the simulator; the others' drivers do as the
/// test says. Time stands still unless it is moved, for what is animated too.
class WindowTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] RouterConnection router(const QString& name) const;
    [[nodiscard]] MatrixController& controller(const QString& name) const;
    /// Of a file in the folder of what is saved.
    [[nodiscard]] QString dataPath(const QString& name) const { return m_folder.path(name); }
    /// What the router's driver says. It has been told to connect when the window came up.
    void report(const QString& name, RouterDriverEvent event);

    enum class Appearance { light, dark };
    /// As if the desktop were set so. A window comes up light.
    static void wear(Appearance appearance);

    /// Lets everything that is under way arrive.
    void settle();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void click(Qt::MouseButton button, const QAccessibleInterface& on);

    /// What a screen reader finds in the window, hidden things left out.
    [[nodiscard]] QList<QAccessibleInterface*> findAll(QAccessible::Role role) const;
    /// The first; null if there is no such thing.
    [[nodiscard]] QAccessibleInterface* find(QAccessible::Role role) const;
    [[nodiscard]] QAccessibleInterface* find(QAccessible::Role role, const QString& name) const;
    /// Null if nothing has the keyboard.
    [[nodiscard]] QAccessibleInterface* focused() const;
    void act(QAccessibleInterface* on, const QString& action);

    ManualQueue queue;
    std::unique_ptr<ConnectionStore> store;
    std::unique_ptr<MainWindow> window;

private:
    [[nodiscard]] std::shared_ptr<RouterDriver> makeDriver(const RouterConnection& router);

    const QPalette m_paletteBefore;
    TemporaryFolder m_folder;
    SteppedAnimations m_animations;
    QHash<QUuid, std::shared_ptr<FakeDriver>> m_drivers;
};

} // namespace corvane
