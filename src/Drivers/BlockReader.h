#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

/// Cuts a byte stream into blocks that end in a blank line, whatever pieces the network delivers it in.
///
/// Carriage returns are dropped, so both kinds of line end are one. No byte is searched twice: a block that
/// arrives in single bytes costs its length and not the square of it.
class BlockReader {
public:
    /// Calls `onBlock(std::string_view)` for each block that these bytes complete, without its blank line.
    /// The text is valid during the call only; it may begin with a line feed, and be empty, when lines before
    /// it were blank.
    template <typename OnBlock>
    void feed(std::string_view bytes, OnBlock&& onBlock)
    {
        append(bytes);
        std::size_t begin = 0;
        for (auto end = findBlankLine(); end != std::string::npos; end = findBlankLine()) {
            onBlock(std::string_view(m_buffer).substr(begin, end - begin));
            begin = m_searched = end + blankLine.size();
        }
        m_buffer.erase(0, begin);
        // A line feed at the very end may be the first half of a blank line.
        m_searched = m_buffer.size() - (m_buffer.ends_with('\n') ? 1 : 0);
    }

private:
    static constexpr std::string_view blankLine = "\n\n";

    [[nodiscard]] std::size_t findBlankLine() const { return m_buffer.find(blankLine, m_searched); }

    void append(std::string_view bytes)
    {
        for (auto end = bytes.find('\r'); end != std::string_view::npos; end = bytes.find('\r')) {
            m_buffer.append(bytes.substr(0, end));
            bytes.remove_prefix(end + 1);
        }
        m_buffer.append(bytes);
    }

    std::string m_buffer;
    std::size_t m_searched = 0;
};

} // namespace corvane
