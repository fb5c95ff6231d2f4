#include "emulator/LineReader.h"

#include <utility>

namespace corvane::emulator {

namespace {

// No command is nearly as long; the rest of a longer line is not kept.
constexpr qsizetype longestLine = 65'536;

} // namespace

QList<QByteArray> LineReader::feed(const QByteArray& bytes)
{
    QList<QByteArray> lines;
    for (const char byte : bytes) {
        const bool isEnd = byte == '\r' || byte == '\n';
        if (isEnd && !m_line.isEmpty())
            lines << std::exchange(m_line, {});
        else if (!isEnd && m_line.size() < longestLine)
            m_line += byte;
    }
    return lines;
}

} // namespace corvane::emulator
