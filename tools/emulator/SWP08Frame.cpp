#include "emulator/SWP08Frame.h"

#include <numeric>

namespace corvane::emulator {

namespace {

constexpr char dle = 0x10;
constexpr char stx = 0x02;
constexpr char etx = 0x03;
constexpr char ack = 0x06;
constexpr char nak = 0x15;

// One more than 255 bytes of payload, a count and a checksum: enough to see that a frame is too long.
constexpr qsizetype longestBody = 258;

quint8 sum(const QByteArray& bytes)
{
    return static_cast<quint8>(std::accumulate(bytes.begin(), bytes.end(), 0));
}

char checksum(const QByteArray& bytes)
{
    return static_cast<char>(-sum(bytes));
}

QByteArray counted(const QByteArray& payload)
{
    return payload + static_cast<char>(payload.size());
}

QByteArray wrapped(QByteArray body)
{
    return QByteArrayLiteral("\x10\x02") + body.replace("\x10", "\x10\x10") + QByteArrayLiteral("\x10\x03");
}

SWP08Item readBody(const QByteArray& body)
{
    const auto payload = body.chopped(std::min<qsizetype>(body.size(), 2));
    const bool isSound =
        !payload.isEmpty() && sum(body) == 0 && static_cast<quint8>(body[payload.size()]) == payload.size();
    if (!isSound)
        return {SWP08Item::Kind::DamagedMessage, {}};
    return {SWP08Item::Kind::Message, payload};
}

} // namespace

QByteArray swp08::frame(const QByteArray& payload)
{
    const auto body = counted(payload);
    return wrapped(body + checksum(body));
}

QByteArray swp08::damagedFrame(const QByteArray& payload)
{
    const auto body = counted(payload);
    return wrapped(body + static_cast<char>(checksum(body) + 1));
}

QList<SWP08Item> SWP08FrameReader::feed(const QByteArray& bytes)
{
    QList<SWP08Item> items;
    for (const char byte : bytes) {
        if (m_afterDle) {
            m_afterDle = false;
            readAfterDle(byte, items);
        } else if (byte == dle) {
            m_afterDle = true;
        } else {
            keep(byte);
        }
    }
    return items;
}

void SWP08FrameReader::readAfterDle(char byte, QList<SWP08Item>& items)
{
    if (byte == dle) {
        keep(byte);
    } else if (byte == stx) {
        m_inFrame = true;
        m_body.clear();
    } else if (byte == etx && m_inFrame) {
        m_inFrame = false;
        items << readBody(m_body);
    } else if (byte == ack) {
        items << SWP08Item{SWP08Item::Kind::Acknowledgement, {}};
    } else if (byte == nak) {
        items << SWP08Item{SWP08Item::Kind::Refusal, {}};
    }
}

void SWP08FrameReader::keep(char byte)
{
    if (m_inFrame && m_body.size() < longestBody)
        m_body += byte;
}

} // namespace corvane::emulator
