#include "Drivers/LW3/LW3Value.h"

#include "Foundation/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

namespace corvane::lw3Value {

namespace {

constexpr char escape = '\\';

/// Each sign, and what stands for it behind the backslash.
constexpr std::array<std::pair<char, char>, 10> escapes{{
    {escape, escape},
    {'(', '('},
    {')', ')'},
    {'{', '{'},
    {'}', '}'},
    {'#', '#'},
    {'%', '%'},
    {'\r', 'r'},
    {'\n', 'n'},
    {'\t', 't'},
}};

/// What the first letter behind a backslash stands for, if for anything.
std::optional<char> escapedSign(std::string_view behind)
{
    if (behind.empty())
        return std::nullopt;
    const auto* const found = std::ranges::find(escapes, behind.front(), &std::pair<char, char>::second);
    return found == escapes.end() ? std::nullopt : std::optional(found->first);
}

} // namespace

QByteArray fromText(const QString& text)
{
    QByteArray value;
    for (const char byte : text.toUtf8()) {
        const auto* const found = std::ranges::find(escapes, byte, &std::pair<char, char>::first);
        if (found != escapes.end())
            value.append(escape);
        value.append(found == escapes.end() ? byte : found->second);
    }
    return value;
}

QString toText(std::string_view value)
{
    if (value.find(escape) == std::string_view::npos)
        return text::fromDevice(value);
    std::string plain;
    plain.reserve(value.size());
    for (std::size_t at = 0; at < value.size(); ++at) {
        const auto sign = value[at] == escape ? escapedSign(value.substr(at + 1)) : std::nullopt;
        plain += sign.value_or(value[at]);
        if (sign)
            ++at;
    }
    return text::fromDevice(plain);
}

} // namespace corvane::lw3Value
