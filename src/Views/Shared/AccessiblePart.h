#pragma once

#include "Views/Shared/MenuAction.h"

#include <QAccessibleActionInterface>
#include <QAccessibleInterface>

namespace corvane {

class AccessibleSurface;

/// One thing on a surface that is no object of its own, as screen readers see it: it has a name, and can be
/// pressed and more.
///
/// A subclass says what it is. Asked when the thing is no longer there, it says nothing.
class AccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    [[nodiscard]] int index() const { return m_index; }
    /// Takes what is so now as known to screen readers.
    void remember();
    /// Tells screen readers what is different since the last time.
    void tellOfChanges();

    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override { }
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

protected:
    AccessiblePart(const AccessibleSurface& surface, int index) : m_surface(surface), m_index(index) { }

    // Only asked while the part is valid.
    [[nodiscard]] virtual QString name() const = 0;
    [[nodiscard]] virtual QString description() const = 0;
    [[nodiscard]] virtual QString help() const { return {}; }
    /// What there is of a state besides what all parts have.
    virtual void tellState(QAccessible::State& state) const = 0;
    [[nodiscard]] virtual bool canBePressed() const { return true; }
    virtual void press() = 0;
    /// The named actions besides the press.
    [[nodiscard]] virtual QList<MenuAction> namedActions() const = 0;
    virtual void takeFocus() = 0;

private:
    const AccessibleSurface& m_surface;
    const int m_index;
    struct Told {
        QString name;
        QString description;
        QString help;
        QAccessible::State state;
    };
    Told m_told;
};

} // namespace corvane
