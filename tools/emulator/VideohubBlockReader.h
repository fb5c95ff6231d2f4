#pragma once

#include <QByteArray>
#include <QList>

namespace corvane::emulator {

/// A header line and the lines below it, without line ends.
struct VideohubBlock {
    QByteArray header;
    QList<QByteArray> lines;

    /// The block as it came, without the blank line that closes it.
    QByteArray text() const;
};

/// Puts blocks together from bytes, whatever pieces they come in. Takes LF and CR LF; blank lines
/// between blocks mean nothing.
class VideohubBlockReader {
public:
    QList<VideohubBlock> feed(const QByteArray& bytes);

private:
    void endLine(QList<VideohubBlock>& complete);

    QByteArray m_line;
    QList<QByteArray> m_lines;
    qsizetype m_size = 0;
};

} // namespace corvane::emulator
