#include "Foundation/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace corvane::text {

using namespace Qt::StringLiterals;

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

bool turnsDirection(QChar character)
{
    const auto code = character.unicode();
    return (code >= u'\u202A' && code <= u'\u202E') || (code >= u'\u2066' && code <= u'\u2069');
}

bool hasShape(QChar character)
{
    return character.category() != QChar::Other_Control && character != QChar::LineSeparator
        && character != QChar::ParagraphSeparator;
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

std::string_view withoutLeading(std::string_view text, char separator)
{
    text.remove_prefix(std::min(text.find_first_not_of(separator), text.size()));
    return text;
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
    constexpr std::size_t mostBytesOfACharacter = 4;
    bytes = bytes.substr(0, longestName * mostBytesOfACharacter);
    auto text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (text.size() > longestName)
        text.truncate(longestName - (text.at(longestName - 1).isHighSurrogate() ? 1 : 0));
    return text;
}

QString onOneLine(QString text)
{
    const auto breaksLine = [](QChar sign) {
        return sign.category() == QChar::Other_Control || sign == QChar::LineSeparator
            || sign == QChar::ParagraphSeparator;
    };
    std::ranges::replace_if(text, breaksLine, u' ');
    return text;
}

bool equalsIgnoringAsciiCase(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, {}, lowerAscii, lowerAscii);
}

QString counted(qint64 count, const QString& noun)
{
    return count == 1 ? u"1 %1"_s.arg(noun) : u"%1 %2s"_s.arg(count).arg(noun);
}

QString oneLine(const QString& name)
{
    // More than any screen has room for.
    constexpr qsizetype longest = 200;
    QString line;
    for (const QChar character : name) {
        if (turnsDirection(character))
            continue;
        if (line.size() == longest) {
            if (line.back().isHighSurrogate())
                line.chop(1);
            return line + u'…';
        }
        line.append(hasShape(character) ? character : u' ');
    }
    return line;
}

void printLine(const QString& line)
{
    const auto bytes = line.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

} // namespace corvane::text
