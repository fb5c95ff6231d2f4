#pragma once

#include <QString>
#include <QStringView>

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

/// An optional "+" or "-" followed by decimal digits, the whole text and nothing else, within 64 bits signed.
[[nodiscard]] std::optional<qint64> decimalInteger(std::string_view text);

/// Decodes UTF-8 from a device; invalid sequences become U+FFFD, nothing is rejected.
[[nodiscard]] QString fromDevice(std::string_view bytes);

/// Compares as if both were in upper case; letters outside A to Z must be the same.
[[nodiscard]] bool equalsIgnoringAsciiCase(std::string_view left, std::string_view right);

/// "{count} {noun}" with an s unless `count` is exactly 1.
[[nodiscard]] QString counted(qint64 count, const QString& noun);

/// Writes one line to standard output and flushes it: the only trace that stored state leaves of its
/// troubles.
void printLine(const QString& line);

} // namespace corvane::text
