#pragma once

#include <QByteArray>
#include <QList>

namespace corvane::emulator {

namespace swp08 {

inline const QByteArray acknowledgement = QByteArrayLiteral("\x10\x06");
inline const QByteArray refusal = QByteArrayLiteral("\x10\x15");

/// Puts a payload of at most 255 bytes on the wire: DLE STX, payload, count, checksum, DLE ETX, with every
/// 10h between the framing bytes sent twice.
QByteArray frame(const QByteArray& payload);

/// The same with a checksum that is wrong.
QByteArray damagedFrame(const QByteArray& payload);

} // namespace swp08

/// One thing that came in: a message, or a bare acknowledgement or refusal of a message sent.
struct SWP08Item {
    enum class Kind { Message, DamagedMessage, Acknowledgement, Refusal };
    Kind kind = Kind::Message;
    /// A message without count and checksum; empty for everything else.
    QByteArray payload;
};

/// Puts messages together from bytes, whatever pieces they come in. What stands between them is passed over.
class SWP08FrameReader {
public:
    QList<SWP08Item> feed(const QByteArray& bytes);

private:
    void readAfterDle(char byte, QList<SWP08Item>& items);
    void keep(char byte);

    QByteArray m_body;
    bool m_inFrame = false;
    bool m_afterDle = false;
};

} // namespace corvane::emulator
