#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

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
/// What waits for its end is kept whole, so memory is in proportion to what was sent.
class DelimitedReader {
public:
    /// Lines end in "\n", blocks of lines in "\n\n". The delimiter must outlive the reader.
    DelimitedReader(std::string_view delimiter, CarriageReturn carriageReturn)
        : m_delimiter(delimiter), m_carriageReturn(carriageReturn)
    {
    }

    /// Calls `onPiece(std::string_view)` for each piece that these bytes complete, without its delimiter. The
    /// text is valid during the call only. A block may begin with a line feed, and be empty, when lines
    /// before it were blank.
    template <typename OnPiece>
    void feed(std::string_view bytes, OnPiece&& onPiece)
    {
        append(bytes);
        std::size_t begin = 0;
        for (auto end = find(m_searched); end != std::string::npos; end = find(begin)) {
            onPiece(std::string_view(m_buffer).substr(begin, end - begin));
            begin = end + m_delimiter.size();
        }
        m_buffer.erase(0, begin);
        // The last bytes may be the first ones of a delimiter.
        m_searched = m_buffer.size() - std::min(m_buffer.size(), m_delimiter.size() - 1);
    }

private:
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
    std::string m_buffer;
    std::size_t m_searched = 0;
};

} // namespace corvane
