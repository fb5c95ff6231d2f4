#include "emulator/SWP08Request.h"

#include "emulator/SWP08Writer.h"

namespace corvane::emulator {

namespace {

using Kind = SWP08Request::Kind;

int byteAt(const QByteArray& payload, qsizetype position)
{
    return static_cast<quint8>(payload[position]);
}

int wordAt(const QByteArray& payload, qsizetype position)
{
    return byteAt(payload, position) << 8 | byteAt(payload, position + 1);
}

SWP08Request ordinary(Kind kind, const QByteArray& payload)
{
    return {.kind = kind,
        .matrix = byteAt(payload, 1) >> 4,
        .level = byteAt(payload, 1) & 0x0f,
        .destination = ((byteAt(payload, 2) >> 4) & 0x07) << 7 | byteAt(payload, 3),
        .source = kind == Kind::Take ? (byteAt(payload, 2) & 0x07) << 7 | byteAt(payload, 4) : 0};
}

SWP08Request extended(Kind kind, const QByteArray& payload)
{
    return {.kind = kind,
        .isExtended = true,
        .matrix = byteAt(payload, 1),
        .level = byteAt(payload, 2),
        .destination = wordAt(payload, 3),
        .source = kind == Kind::Take ? wordAt(payload, 5) : 0};
}

} // namespace

std::optional<SWP08Request> readSwp08Request(const QByteArray& payload)
{
    const auto is = [&](swp08::Number number, qsizetype size) {
        return payload[0] == number && payload.size() == size;
    };
    if (is(swp08::interrogate, 4))
        return ordinary(Kind::Question, payload);
    if (is(swp08::connect, 5))
        return ordinary(Kind::Take, payload);
    if (is(swp08::extendedInterrogate, 5))
        return extended(Kind::Question, payload);
    if (is(swp08::extendedConnect, 7))
        return extended(Kind::Take, payload);
    return std::nullopt;
}

} // namespace corvane::emulator
