#include "Foundation/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace corvane::text {

namespace {

char lowerAscii(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Nothing but digits, too few to overflow: nearly every number that a device sends.
std::optional<qint64> plainNumber(std::string_view text)
{
    if (text.empty() || text.size() > 18)
        return std::nullopt;
    qint64 value = 0;
    for (const char letter : text) {
        const int digit = letter - '0';
        if (digit < 0 || digit > 9)
            return std::nullopt;
        value = value * 10 + digit;
    }
    return value;
}

} // namespace

std::string_view trimBlanks(std::string_view text)
{
    const auto begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

QStringView trimBlanks(QStringView text)
{
    while (!text.isEmpty() && (text.front() == u' ' || text.front() == u'\t'))
        text = text.sliced(1);
    while (!text.isEmpty() && (text.back() == u' ' || text.back() == u'\t'))
        text.chop(1);
    return text;
}

QString trimWhiteSpace(const QString& text)
{
    return text.trimmed();
}

std::optional<qint64> decimalInteger(std::string_view text)
{
    if (const auto number = plainNumber(text))
        return number;
    const bool isPositive = text.starts_with('+');
    if (isPositive)
        text.remove_prefix(1);
    // from_chars would read the minus of "+-1".
    if (isPositive && text.starts_with('-'))
        return std::nullopt;
    qint64 value = 0;
    const auto* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

QString fromDevice(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

bool equalsIgnoringAsciiCase(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, {}, lowerAscii, lowerAscii);
}

QString counted(qint64 count, const QString& noun)
{
    return count == 1 ? QStringLiteral("1 %1").arg(noun) : QStringLiteral("%1 %2s").arg(count).arg(noun);
}

void printLine(const QString& line)
{
    const auto bytes = line.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

} // namespace corvane::text
