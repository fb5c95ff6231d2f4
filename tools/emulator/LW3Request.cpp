#include "emulator/LW3Request.h"

namespace corvane::emulator {

namespace {

constexpr qsizetype signatureLength = 4;

} // namespace

LW3Request readLW3Request(const QByteArray& line)
{
    LW3Request request;
    auto rest = line;
    if (line.indexOf('#') == signatureLength) {
        request.signature = line.left(signatureLength);
        rest.remove(0, signatureLength + 1);
    }
    const auto [verb, argument] = splitFirst(rest, ' ');
    request.verb = verb;
    request.argument = argument;
    return request;
}

LW3Halves splitFirst(const QByteArray& text, char separator)
{
    const auto position = text.indexOf(separator);
    if (position < 0)
        return {text, {}};
    return {text.left(position), text.mid(position + 1)};
}

std::optional<LW3Call> readLW3Call(const QByteArray& text)
{
    const auto open = text.indexOf('(');
    if (open < 0 || !text.endsWith(')'))
        return std::nullopt;
    const auto parameters = text.mid(open + 1, text.size() - open - 2);
    return LW3Call{text.left(open), parameters.split(';')};
}

} // namespace corvane::emulator
