#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

/// Text helpers, one name for each thing, for the protocols differ on purpose: trimming blanks is not
/// trimming white space, and a decimal integer is a whole text and not its beginning.
namespace corvane::text {

/// Removes spaces and tabs from both ends, and nothing else.
[[nodiscard]] std::string_view trimBlanks(std::string_view text);
[[nodiscard]] QStringView trimBlanks(QStringView text);

/// Removes white space and line breaks of every kind from both ends.
[[nodiscard]] QString trimWhiteSpace(const QString& text);

/// The two sides of a separator.
struct Halves {
    std::string_view before;
    /// Absent when there was no separator.
    std::optional<std::string_view> after;
};

/// Cuts at the first `separator`.
[[nodiscard]] inline Halves cut(std::string_view text, char separator)
{
    // What comes first is a few letters: a plain loop is through with it before a call to memchr has begun.
    const auto position = static_cast<std::size_t>(std::ranges::find(text, separator) - text.begin());
    if (position == text.size())
        return {text, std::nullopt};
    return {text.substr(0, position), text.substr(position + 1)};
}

/// Removes every `separator` that the text begins with.
[[nodiscard]] std::string_view withoutLeading(std::string_view text, char separator);

/// An optional "+" or "-" followed by decimal digits, the whole text and nothing else, within 64 bits signed.
[[nodiscard]] std::optional<qint64> decimalInteger(std::string_view text);

/// No name that means anything to a person is longer, in characters. What a device sends beyond is left out.
inline constexpr qsizetype longestName = 1024;

/// Decodes UTF-8 from a device, up to `longestName`; invalid sequences become U+FFFD, nothing is rejected.
[[nodiscard]] QString fromDevice(std::string_view bytes);

/// Makes a blank of every line break and control character, which no device may be sent inside a name.
[[nodiscard]] QString onOneLine(QString text);

/// Compares as if both were in upper case; letters outside A to Z must be the same.
[[nodiscard]] bool equalsIgnoringAsciiCase(std::string_view left, std::string_view right);

/// "{count} {noun}" with an s unless `count` is exactly 1.
[[nodiscard]] QString counted(qint64 count, const QString& noun);

/// A name as it is shown among other text: line breaks, tabs and what else has no shape become blanks, what
/// would turn the direction of the text around it is left out, and a very long name is cut and ends in "…".
[[nodiscard]] QString oneLine(const QString& name);

/// Writes one line to standard output and flushes it: the only trace that stored state leaves of its
/// troubles.
void printLine(const QString& line);

} // namespace corvane::text
