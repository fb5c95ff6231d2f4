#pragma once

#include "Views/Shared/AccessiblePart.h"

#include <QAccessibleObject>
#include <QHash>
#include <QPointF>
#include <QQuickItem>

#include <functional>
#include <memory>
#include <optional>

namespace corvane {

/// An item with many things on it that are no objects, as screen readers see it.
///
/// The parts are numbered from 0. Each is made when somebody asks for it, lives until the parts are
/// forgotten, and says what is so at that moment. Main thread.
class AccessibleSurface : public QAccessibleObject {
public:
    /// Hands an event to whoever passes it on to screen readers.
    using Tell = std::function<void(QAccessibleEvent& event)>;
    static void passOn(QAccessibleEvent& event) { QAccessible::updateAccessibility(&event); }

    ~AccessibleSurface() override;

    [[nodiscard]] bool isValid() const override { return m_item != nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override { return m_item ? partCount() : 0; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::State state() const override;

    void tell(QAccessibleEvent&& event) const { m_tell(event); }
    /// Null once the item is going.
    [[nodiscard]] QQuickItem* item() const { return m_item; }
    [[nodiscard]] bool hasFocus(int part) const { return focusedPart() == part; }
    /// A rectangle of the item on the screen.
    [[nodiscard]] QRect onScreen(const QRectF& rect) const;

protected:
    AccessibleSurface(QQuickItem& item, Tell tell);

    // Only asked while the item is there.
    [[nodiscard]] virtual int partCount() const = 0;
    [[nodiscard]] virtual std::unique_ptr<AccessiblePart> makePart(int part) const = 0;
    /// The part at a point of the item.
    [[nodiscard]] virtual std::optional<int> partAt(QPointF point) const = 0;
    /// The part that has the keyboard whenever the item has it.
    [[nodiscard]] virtual std::optional<int> keyboardPart() const = 0;

    /// There are other parts than before.
    void forgetParts();
    void tellOf(int part) const;
    void tellOfAll() const;
    void tellOfFocus() const;
    /// From now on there is nothing to say.
    void forgetItem() { m_item = nullptr; }
    /// Ends the connections to what is observed.
    [[nodiscard]] QObject& context() { return m_context; }

private:
    [[nodiscard]] AccessiblePart* known(int part) const;
    [[nodiscard]] std::optional<int> focusedPart() const;
    void deleteParts();

    QQuickItem* m_item;
    const Tell m_tell;
    mutable QHash<int, QAccessible::Id> m_parts;
    QObject m_context;
};

} // namespace corvane
