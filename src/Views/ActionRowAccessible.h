#pragma once

#include <QAccessibleActionInterface>
#include <QAccessibleObject>

namespace corvane {

class ActionRow;

/// An `ActionRow` as screen readers see it. Its children are its parts that have something to say.
/// Main thread.
class ActionRowAccessible final : public QAccessibleObject, public QAccessibleActionInterface {
public:
    /// Makes such rows known to Qt; repeating it does nothing.
    static void install();

    explicit ActionRowAccessible(ActionRow& row);

    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

private:
    /// Null once the row is going.
    [[nodiscard]] ActionRow* row() const;
};

} // namespace corvane
