#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

/// What a carriage return means to a protocol.
enum class CarriageReturn {
    /// It is no part of the text, wherever it stands.
    dropped,
    /// It ends a line as a line feed does.
    lineFeed,
};

/// Cuts a byte stream into lines, or blocks of lines, whatever pieces the network delivers it in.
///
/// No byte is searched twice: a line that arrives in single bytes costs its length and not the square of it.
/// What waits for its end is kept whole, up to a limit: what is longer is left out, and reading goes on
/// behind its end. Memory that a long piece took is given back.
class DelimitedReader {
public:
    /// In bytes. Far more than any device has to say in one line.
    static constexpr std::size_t longestLine = std::size_t{4} << 20;

    /// Lines end in "\n", blocks of lines in "\n\n". The delimiter must outlive the reader.
    DelimitedReader(
        std::string_view delimiter, CarriageReturn carriageReturn, std::size_t limit = longestLine)
        : m_delimiter(delimiter), m_carriageReturn(carriageReturn), m_limit(limit)
    {
    }

    /// Calls `onPiece(std::string_view)` for each piece that these bytes complete, without its delimiter. The
    /// text is valid during the call only. A block may begin with a line feed, and be empty, when lines
    /// before it were blank. True when a piece has turned out to be beyond the limit; told once a piece.
    template <typename OnPiece>
    bool feed(std::string_view bytes, OnPiece&& onPiece)
    {
        append(bytes);
        bool isBeyondLimit = false;
        std::size_t begin = 0;
        for (auto end = find(m_searched); end != std::string::npos; end = find(begin)) {
            const auto piece = std::string_view(m_buffer).substr(begin, end - begin);
            begin = end + m_delimiter.size();
            if (std::exchange(m_isLeavingOut, false))
                continue;
            if (piece.size() > m_limit)
                isBeyondLimit = true;
            else
                onPiece(piece);
        }
        m_buffer.erase(0, begin);
        if (m_buffer.size() > m_limit && !std::exchange(m_isLeavingOut, true))
            isBeyondLimit = true;
        if (m_isLeavingOut)
            m_buffer.erase(0, m_buffer.size() - partOfDelimiter());
        giveBack();
        m_searched = m_buffer.size() - partOfDelimiter();
        return isBeyondLimit;
    }

private:
    /// More room than this is given back once it is not needed.
    static constexpr std::size_t keptRoom = std::size_t{256} << 10;

    /// How many of the last bytes may be the first ones of a delimiter.
    [[nodiscard]] std::size_t partOfDelimiter() const
    {
        return std::min(m_buffer.size(), m_delimiter.size() - 1);
    }

    void giveBack()
    {
        if (m_buffer.capacity() > keptRoom && m_buffer.size() <= keptRoom / 2)
            m_buffer = std::string(m_buffer);
    }

    [[nodiscard]] std::size_t find(std::size_t from) const { return m_buffer.find(m_delimiter, from); }

    void append(std::string_view bytes)
    {
        for (auto end = bytes.find('\r'); end != std::string_view::npos; end = bytes.find('\r')) {
            m_buffer.append(bytes.substr(0, end));
            if (m_carriageReturn == CarriageReturn::lineFeed)
                m_buffer.push_back('\n');
            bytes.remove_prefix(end + 1);
        }
        m_buffer.append(bytes);
    }

    const std::string_view m_delimiter;
    const CarriageReturn m_carriageReturn;
    const std::size_t m_limit;
    std::string m_buffer;
    /// Inside a piece that is beyond the limit.
    bool m_isLeavingOut = false;
    std::size_t m_searched = 0;
};

} // namespace corvane
