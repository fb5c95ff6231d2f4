#include "Theme/FieldAccessible.h"

#include <algorithm>

namespace corvane {

QString FieldAccessible::content() const
{
    return isValid() ? control().property("text").toString() : QString();
}

int FieldAccessible::number(const char* property) const
{
    return isValid() ? control().property(property).toInt() : 0;
}

int FieldAccessible::within(int offset) const
{
    return std::clamp(offset, 0, characterCount());
}

bool FieldAccessible::canBeWritten() const
{
    return isValid() && canBeUsed() && !control().property("readOnly").toBool();
}

QAccessible::State FieldAccessible::state() const
{
    auto state = ControlAccessible::state();
    state.focusable = true;
    state.selectableText = true;
    state.readOnly = isValid() && control().property("readOnly").toBool();
    state.editable = !state.readOnly;
    return state;
}

QString FieldAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? content() : ControlAccessible::text(kind);
}

void FieldAccessible::setText(QAccessible::Text kind, const QString& text)
{
    if (kind == QAccessible::Value)
        replaceText(0, characterCount(), text);
}

void* FieldAccessible::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface*>(this);
    case QAccessible::EditableTextInterface:
        return static_cast<QAccessibleEditableTextInterface*>(this);
    default:
        return ControlAccessible::interface_cast(type);
    }
}

void FieldAccessible::selection(int selectionIndex, int* startOffset, int* endOffset) const
{
    const bool isThere = selectionIndex == 0 && selectionCount() > 0;
    *startOffset = isThere ? number("selectionStart") : 0;
    *endOffset = isThere ? number("selectionEnd") : 0;
}

int FieldAccessible::selectionCount() const
{
    return number("selectionStart") == number("selectionEnd") ? 0 : 1;
}

void FieldAccessible::addSelection(int startOffset, int endOffset)
{
    setSelection(0, startOffset, endOffset);
}

void FieldAccessible::removeSelection(int selectionIndex)
{
    if (isValid() && selectionIndex == 0)
        QMetaObject::invokeMethod(&control(), "deselect");
}

void FieldAccessible::setSelection(int selectionIndex, int startOffset, int endOffset)
{
    if (isValid() && selectionIndex == 0)
        QMetaObject::invokeMethod(
            &control(), "select", Q_ARG(int, within(startOffset)), Q_ARG(int, within(endOffset)));
}

int FieldAccessible::cursorPosition() const
{
    return number("cursorPosition");
}

void FieldAccessible::setCursorPosition(int position)
{
    if (isValid())
        control().setProperty("cursorPosition", within(position));
}

QString FieldAccessible::text(int startOffset, int endOffset) const
{
    // The end is meant where none is given.
    const int end = endOffset < 0 ? characterCount() : within(endOffset);
    const int start = within(startOffset);
    return content().mid(start, std::max(0, end - start));
}

int FieldAccessible::characterCount() const
{
    return static_cast<int>(content().size());
}

QRect FieldAccessible::characterRect(int offset) const
{
    if (!isValid() || offset < 0 || offset >= characterCount())
        return {};
    QRectF here;
    QRectF next;
    QMetaObject::invokeMethod(
        &control(), "positionToRectangle", Q_RETURN_ARG(QRectF, here), Q_ARG(int, offset));
    QMetaObject::invokeMethod(
        &control(), "positionToRectangle", Q_RETURN_ARG(QRectF, next), Q_ARG(int, offset + 1));
    here.setWidth(next.x() - here.x());
    return QRectF(control().mapToGlobal(here.topLeft()), here.size()).toRect();
}

int FieldAccessible::offsetAtPoint(const QPoint& point) const
{
    for (int offset = 0; offset < characterCount(); ++offset)
        if (characterRect(offset).contains(point))
            return offset;
    return -1;
}

void FieldAccessible::scrollToSubstring(int startIndex, int)
{
    // A field shows what is around its cursor.
    setCursorPosition(startIndex);
}

QString FieldAccessible::attributes(int, int* startOffset, int* endOffset) const
{
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

void FieldAccessible::deleteText(int startOffset, int endOffset)
{
    if (canBeWritten())
        QMetaObject::invokeMethod(
            &control(), "remove", Q_ARG(int, within(startOffset)), Q_ARG(int, within(endOffset)));
}

void FieldAccessible::insertText(int offset, const QString& text)
{
    if (canBeWritten())
        QMetaObject::invokeMethod(&control(), "insert", Q_ARG(int, within(offset)), Q_ARG(QString, text));
}

void FieldAccessible::replaceText(int startOffset, int endOffset, const QString& text)
{
    const int start = within(startOffset);
    deleteText(start, endOffset);
    insertText(start, text);
}

} // namespace corvane
