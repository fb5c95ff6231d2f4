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
};

/// Reads HTTP/1.0 and 1.1 requests one after the other, whatever pieces they come in. A KUMO is
/// only ever asked; requests have no bodies.
class HttpRequestReader {
public:
    QList<HttpRequest> feed(const QByteArray& bytes);

private:
    void endLine(QList<HttpRequest>& complete);

    QByteArray m_line;
    QList<QByteArray> m_head;
};

} // namespace corvane::emulator
