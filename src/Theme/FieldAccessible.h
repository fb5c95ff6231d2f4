#pragma once

#include "Theme/ControlAccessible.h"

namespace corvane {

/// A text field as screen readers see it: they can read what is in it, select, and write. What they write
/// counts as typed. Positions count from 0, in UTF-16 units; those out of range mean the nearest end. Main
/// thread.
class FieldAccessible final : public ControlAccessible,
                              public QAccessibleTextInterface,
                              public QAccessibleEditableTextInterface {
public:
    using ControlAccessible::ControlAccessible;

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::EditableText; }
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QStringList actionNames() const override { return {setFocusAction()}; }

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;
    [[nodiscard]] QString text(int startOffset, int endOffset) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    [[nodiscard]] QString attributes(int offset, int* startOffset, int* endOffset) const override;

    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int startOffset, int endOffset, const QString& text) override;

private:
    [[nodiscard]] QString content() const;
    [[nodiscard]] int number(const char* property) const;
    [[nodiscard]] int within(int offset) const;
    [[nodiscard]] bool canBeWritten() const;
};

} // namespace corvane
