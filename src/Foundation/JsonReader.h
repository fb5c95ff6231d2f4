#pragma once

#include <QByteArrayView>
#include <QString>
#include <QUuid>

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace corvane {

/// What is wrong with a JSON text, in words that fit into one line.
class JsonError : public std::runtime_error {
public:
    explicit JsonError(const QString& text) : std::runtime_error(text.toStdString()) { }
};

struct JsonTape;

/// One value of a JSON text, to be asked for the one type that it should have: anything else throws
/// `JsonError`.
///
/// A view, valid only during the call that handed it out. Where an object has a member twice, the last one
/// counts.
class JsonValue {
public:
    JsonValue(const JsonTape& tape, std::size_t position) : m_tape(&tape), m_position(position) { }

    [[nodiscard]] bool isNull() const;
    [[nodiscard]] QString string() const;
    /// A whole number within 64 bits, however it is written: 5.0 is 5, and 5.5 is refused.
    [[nodiscard]] qint64 integer() const;
    [[nodiscard]] double number() const;
    /// Hexadecimal text 8-4-4-4-12 in either case, without braces.
    [[nodiscard]] QUuid uuid() const;

    /// A member that must be there.
    [[nodiscard]] JsonValue member(std::string_view name) const;
    /// A member that may be missing or null, which are the same thing.
    [[nodiscard]] std::optional<JsonValue> optionalMember(std::string_view name) const;

    /// Calls `visit(QString name, JsonValue value)` for each member, in the text's order.
    template <typename Visit>
    void forEachMember(Visit&& visit) const
    {
        for (auto i = firstMember(); i != end(); i = past(i + 1))
            visit(key(i), JsonValue(*m_tape, i + 1));
    }

    /// Calls `visit(JsonValue element)` for each element.
    template <typename Visit>
    void forEachElement(Visit&& visit) const
    {
        for (auto i = firstElement(); i != end(); i = past(i))
            visit(JsonValue(*m_tape, i));
    }

    [[nodiscard]] std::size_t elementCount() const;

private:
    [[nodiscard]] std::optional<JsonValue> lastMember(std::string_view name) const;
    [[nodiscard]] std::size_t firstMember() const;
    [[nodiscard]] std::size_t firstElement() const;
    [[nodiscard]] std::size_t end() const;
    [[nodiscard]] std::size_t past(std::size_t position) const;
    [[nodiscard]] QString key(std::size_t position) const;
    [[nodiscard]] JsonError isNot(const QString& what) const;

    const JsonTape* m_tape;
    std::size_t m_position;
};

/// Reads a text that must be one object and hands out its members one by one, in the text's order and
/// repeated ones included, so that what is held at a time is one member and not the whole text's tree.
///
/// Throws `JsonError` when the text is not JSON from its first byte to its last, invalid UTF-8 and NUL bytes
/// included; members may have been handed out by then. However deep the text nests, nothing recurses.
void readJsonObject(
    QByteArrayView text, const std::function<void(const QString& name, JsonValue value)>& visit);

/// The same for a text that must be one array.
void readJsonArray(QByteArrayView text, const std::function<void(JsonValue element)>& visit);

} // namespace corvane
