#include "Drivers/SWP08/SWP08Frame.h"

#include <numeric>

namespace corvane {

namespace {

quint8 sum(std::string_view bytes)
{
    return static_cast<quint8>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

} // namespace

QByteArray swp08::frame(const QByteArray& payload)
{
    auto body = payload;
    body.append(static_cast<char>(body.size()));
    body.append(static_cast<char>(-sum({body.constData(), static_cast<std::size_t>(body.size())})));

    QByteArray wire;
    wire.append(dle).append(stx);
    for (const char byte : std::as_const(body)) {
        if (byte == dle)
            wire.append(dle);
        wire.append(byte);
    }
    return wire.append(dle).append(etx);
}

bool swp08::isSound(std::string_view body)
{
    if (body.size() < 3)
        return false;
    const auto payloadSize = body.size() - 2;
    return sum(body) == 0 && static_cast<quint8>(body[payloadSize]) == payloadSize;
}

} // namespace corvane
