#include "emulator/HttpRequestReader.h"

#include <utility>

namespace corvane::emulator {

namespace {

// What does not fit is not kept: no client of a router says nearly as much.
constexpr qsizetype longestLine = 16'384;
constexpr qsizetype mostLines = 200;

HttpRequest readHead(const QList<QByteArray>& head)
{
    const auto words = head.first().split(' ');
    HttpRequest request{.method = words.value(0), .target = words.value(1)};
    request.keepAlive = words.value(2) != "HTTP/1.0";
    for (const auto& line : head) {
        const auto header = line.toLower();
        if (header.startsWith("connection:"))
            request.keepAlive = !header.contains("close");
    }
    return request;
}

} // namespace

QList<HttpRequest> HttpRequestReader::feed(const QByteArray& bytes)
{
    QList<HttpRequest> complete;
    for (const char byte : bytes) {
        if (byte == '\n')
            endLine(complete);
        else if (byte != '\r' && m_line.size() < longestLine)
            m_line += byte;
    }
    return complete;
}

void HttpRequestReader::endLine(QList<HttpRequest>& complete)
{
    if (!m_line.isEmpty() && m_head.size() < mostLines)
        m_head << m_line;
    if (!std::exchange(m_line, {}).isEmpty() || m_head.isEmpty())
        return;
    complete << readHead(std::exchange(m_head, {}));
}

} // namespace corvane::emulator
