#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

namespace corvane {

/// A control as screen readers see it: what QML says of it (`Accessible.name`, `role` and the like), and what
/// Qt's own interface for items leaves out: whether it can be used at all (`enabled`, and `available` if it
/// has that), and a way to give it the keyboard.
///
/// Has no children: whatever a control is made of is told by its name. Main thread.
class ControlAccessible : public QAccessibleObject, public QAccessibleActionInterface {
public:
    /// From now on screen readers see buttons and text fields through this class and `FieldAccessible`.
    static void install();

    explicit ControlAccessible(QQuickItem& control);

    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

protected:
    /// Only asked while the interface is valid.
    [[nodiscard]] QQuickItem& control() const;
    [[nodiscard]] bool canBeUsed() const;

private:
    [[nodiscard]] QVariant said(const char* property) const;

    std::unique_ptr<QObject> m_news;
};

} // namespace corvane
