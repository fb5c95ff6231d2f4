#include "emulator/VideohubBlockReader.h"

#include <utility>

namespace corvane::emulator {

namespace {

// Far above the largest router's whole state; the rest of a longer block is not kept.
constexpr qsizetype longestBlock = qsizetype{4} * 1024 * 1024;

} // namespace

QByteArray VideohubBlock::text() const
{
    return (QList<QByteArray>{header} + lines).join('\n');
}

QList<VideohubBlock> VideohubBlockReader::feed(const QByteArray& bytes)
{
    QList<VideohubBlock> complete;
    for (const char byte : bytes) {
        if (byte == '\n') {
            endLine(complete);
        } else if (byte != '\r' && m_size < longestBlock) {
            m_line += byte;
            ++m_size;
        }
    }
    return complete;
}

void VideohubBlockReader::endLine(QList<VideohubBlock>& complete)
{
    if (!m_line.isEmpty()) {
        m_lines << std::exchange(m_line, {});
        return;
    }
    if (m_lines.isEmpty())
        return;
    const auto header = m_lines.takeFirst();
    complete << VideohubBlock{header, std::exchange(m_lines, {})};
    m_size = 0;
}

} // namespace corvane::emulator
