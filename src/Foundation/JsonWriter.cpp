#include "Foundation/JsonWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace corvane {

namespace {

constexpr std::size_t pieceSize = 1 << 20;

bool isPlain(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x20 && byte != '"' && byte != '\\';
}

/// Of what can be copied as it is.
std::size_t plainLength(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::find_if_not(text, isPlain) - text.begin());
}

std::string escaped(char byte)
{
    if (byte == '"' || byte == '\\')
        return {'\\', byte};
    constexpr std::string_view digits = "0123456789abcdef";
    return {'\\', 'u', '0', '0', digits[static_cast<std::size_t>(byte) >> 4], digits[byte & 0xf]};
}

template <typename Number>
std::string_view decimal(Number number, std::array<char, 32>& space)
{
    const auto result = std::to_chars(space.data(), space.data() + space.size(), number);
    return {space.data(), result.ptr};
}

} // namespace

void JsonWriter::key(std::string_view name)
{
    separate();
    m_buffer += '"';
    m_buffer += name;
    m_buffer += "\":";
}

void JsonWriter::escapedKey(const QString& name)
{
    separate();
    quote(name);
    m_buffer += ':';
}

void JsonWriter::string(const QString& text)
{
    separate();
    quote(text);
    valueEnded();
}

void JsonWriter::integer(qint64 number)
{
    separate();
    std::array<char, 32> space;
    m_buffer += decimal(number, space);
    valueEnded();
}

void JsonWriter::number(double number)
{
    constexpr double wholeLimit = 9007199254740992.0; // 2 to the power of 53
    if (std::trunc(number) == number && std::abs(number) <= wholeLimit) {
        integer(static_cast<qint64>(number));
        return;
    }
    separate();
    std::array<char, 32> space;
    m_buffer += std::isfinite(number) ? decimal(number, space) : std::string_view("null");
    valueEnded();
}

void JsonWriter::member(QByteArrayView json)
{
    separate();
    m_buffer.append(json.data(), static_cast<std::size_t>(json.size()));
    valueEnded();
}

void JsonWriter::flush()
{
    m_sink(QByteArrayView(m_buffer.data(), static_cast<qsizetype>(m_buffer.size())));
    m_buffer.clear();
}

void JsonWriter::begin(char bracket)
{
    separate();
    m_buffer += bracket;
}

void JsonWriter::end(char bracket)
{
    m_buffer += bracket;
    valueEnded();
}

void JsonWriter::valueEnded()
{
    m_needsComma = true;
    if (m_buffer.size() >= pieceSize)
        flush();
}

void JsonWriter::separate()
{
    if (m_needsComma)
        m_buffer += ',';
    m_needsComma = false;
}

void JsonWriter::quote(const QString& text)
{
    m_buffer += '"';
    const auto bytes = text.toUtf8();
    std::string_view rest(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    for (auto plain = plainLength(rest); plain < rest.size(); plain = plainLength(rest)) {
        m_buffer += rest.substr(0, plain);
        m_buffer += escaped(rest[plain]);
        rest.remove_prefix(plain + 1);
    }
    m_buffer += rest;
    m_buffer += '"';
}

} // namespace corvane
