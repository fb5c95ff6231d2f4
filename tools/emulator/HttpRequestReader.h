#pragma once

#include <QByteArray>
#include <QList>

namespace corvane::emulator {

struct HttpRequest {
    QByteArray method;
    /// Path and query as they came.
    QByteArray target;
    /// Whether the client wants to ask more on this connection.
    bool keepAlive = true;
    qsizetype bodySize = 0;
};

/// Reads HTTP/1.0 and 1.1 requests one after the other, whatever pieces they come in. Bodies are passed over.
class HttpRequestReader {
public:
    QList<HttpRequest> feed(const QByteArray& bytes);

private:
    void endLine(QList<HttpRequest>& complete);

    QByteArray m_line;
    QList<QByteArray> m_head;
    qsizetype m_bodyLeft = 0;
};

} // namespace corvane::emulator
