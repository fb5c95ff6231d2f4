#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <string>
#include <string_view>

namespace corvane {

/// Writes compact JSON as a stream, in the order of the calls, so that a file of any size is never held as a
/// whole.
///
/// Commas come by themselves. The caller keeps the nesting right: a key before each value in an object, and
/// an end for each begin.
class JsonWriter {
public:
    /// Gets the text in pieces of about a megabyte; the rest comes with `flush`. It may throw to end the
    /// writing.
    using Sink = std::function<void(QByteArrayView piece)>;

    explicit JsonWriter(Sink sink) : m_sink(std::move(sink)) { }

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// A name of ours: plain letters that need no escaping.
    void key(std::string_view name);
    /// A name from the operator's data.
    void escapedKey(const QString& name);

    void string(const QString& text);
    void integer(qint64 number);
    /// A whole number is written without ".0", a fraction with every digit that it takes to read the same
    /// number back.
    void number(double number);

    /// A whole member, key and value, that is JSON already.
    void member(QByteArrayView json);

    void flush();

private:
    void begin(char bracket);
    void end(char bracket);
    void separate();
    void valueEnded();
    void quote(const QString& text);

    Sink m_sink;
    std::string m_buffer;
    bool m_needsComma = false;
};

} // namespace corvane
