#pragma once

#include <QByteArray>

#include <array>
#include <cstddef>
#include <string_view>

namespace corvane {

namespace swp08 {

inline constexpr char dle = 0x10;
inline constexpr char stx = 0x02;
inline constexpr char etx = 0x03;
inline constexpr char ack = 0x06;
inline constexpr char nak = 0x15;

/// 255 bytes of payload, the count that says so, and the checksum.
inline constexpr std::size_t longestBody = 257;

/// The payload, of at most 255 bytes, as it goes over the wire: DLE STX, then payload, count and checksum
/// with every DLE among them doubled, then DLE ETX.
[[nodiscard]] QByteArray frame(const QByteArray& payload);

/// Whether a body has a payload, and count and checksum agree with it.
[[nodiscard]] bool isSound(std::string_view body);

} // namespace swp08

enum class SWP08Item {
    /// Whatever stood between DLE STX and DLE ETX, its doubled DLEs made single again.
    body,
    acknowledgement,
    refusal,
};

/// Cuts a byte stream into SW-P-08 frames and bare answers, whatever pieces the network delivers it in. What
/// stands outside of frames is passed over.
///
/// Looks at each byte once and never holds more than one frame. Of a longer one it keeps a byte more than can
/// be sound.
class SWP08FrameReader {
public:
    /// Calls `onItem(SWP08Item, std::string_view body)` for each item that these bytes complete. The body is
    /// valid during the call only.
    template <typename OnItem>
    void feed(std::string_view bytes, OnItem&& onItem)
    {
        for (const char byte : bytes) {
            if (m_lastWasDle)
                feedAfterDle(byte, onItem);
            else if (byte == swp08::dle)
                m_lastWasDle = true;
            else
                keep(byte);
        }
    }

private:
    template <typename OnItem>
    void feedAfterDle(char byte, OnItem& onItem)
    {
        m_lastWasDle = false;
        switch (byte) {
        case swp08::stx:
            m_inFrame = true;
            m_size = 0;
            break;
        case swp08::etx:
            if (m_inFrame)
                onItem(SWP08Item::body, std::string_view(m_body.data(), m_size));
            m_inFrame = false;
            break;
        case swp08::ack:
            onItem(SWP08Item::acknowledgement, std::string_view());
            break;
        case swp08::nak:
            onItem(SWP08Item::refusal, std::string_view());
            break;
        case swp08::dle:
            keep(byte);
            break;
        default:
            break;
        }
    }

    void keep(char byte)
    {
        if (m_inFrame && m_size < m_body.size())
            m_body[m_size++] = byte;
    }

    std::array<char, swp08::longestBody + 1> m_body{};
    std::size_t m_size = 0;
    bool m_inFrame = false;
    bool m_lastWasDle = false;
};

} // namespace corvane
