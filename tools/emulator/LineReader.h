#pragma once

#include <QByteArray>
#include <QList>

namespace corvane::emulator {

/// Cuts bytes into lines, whatever pieces they come in. CR, LF and CR LF all end a line; empty lines mean
/// nothing and are passed over.
class LineReader {
public:
    /// The lines these bytes complete, without their ends.
    QList<QByteArray> feed(const QByteArray& bytes);

private:
    QByteArray m_line;
};

} // namespace corvane::emulator
