#include "emulator/LW3Escape.h"

namespace corvane::emulator {

namespace {

constexpr QByteArrayView marks = "\\(){}#%";
// At the same places: what can't stand in a line, and the letter that stands for it.
constexpr QByteArrayView lineSigns = "\r\n\t";
constexpr QByteArrayView letters = "rnt";

} // namespace

QByteArray escapedForLW3(const QByteArray& value)
{
    QByteArray escaped;
    for (const char byte : value) {
        const auto letter = lineSigns.indexOf(byte);
        if (letter >= 0 || marks.contains(byte))
            escaped += '\\';
        escaped += letter >= 0 ? letters[letter] : byte;
    }
    return escaped;
}

std::optional<QByteArray> readLW3Value(const QByteArray& escaped)
{
    QByteArray value;
    for (qsizetype at = 0; at < escaped.size(); ++at) {
        if (escaped[at] != '\\') {
            if (marks.contains(escaped[at]))
                return std::nullopt;
            value += escaped[at];
            continue;
        }
        if (++at == escaped.size())
            return std::nullopt;
        const auto letter = letters.indexOf(escaped[at]);
        value += letter >= 0 ? lineSigns[letter] : escaped[at];
    }
    return value;
}

} // namespace corvane::emulator
