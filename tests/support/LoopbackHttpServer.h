#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <vector>

namespace corvane {

/// Answers HTTP requests on loopback with whatever bytes the test wants, well-formed or not.
class LoopbackHttpServer {
public:
    LoopbackHttpServer()
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            auto* const socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, &m_server, [this, socket] { read(*socket); });
        });
        m_server.listen(QHostAddress::LocalHost);
    }

    [[nodiscard]] quint16 port() const { return m_server.serverPort(); }

    [[nodiscard]] static QByteArray reply(
        const QByteArray& status, const QByteArray& body, const QByteArray& headers = {})
    {
        return "HTTP/1.1 " + status + "\r\nContent-Type: text/html\r\nContent-Length: "
            + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body;
    }

    /// The bytes to send for a request; none is silence. A request is its line and all its headers.
    std::function<QByteArray(const QByteArray& request)> answer = [](const auto&) { return QByteArray(); };
    /// Ends each connection after its answer.
    bool hangsUp = false;
    std::vector<QByteArray> requests;

private:
    void read(QTcpSocket& socket)
    {
        for (auto end = endOfRequest(socket); end >= 0; end = endOfRequest(socket)) {
            requests.push_back(socket.read(end + 4));
            socket.write(answer(requests.back()));
            if (hangsUp)
                socket.disconnectFromHost();
        }
    }

    static qsizetype endOfRequest(QTcpSocket& socket)
    {
        return socket.peek(socket.bytesAvailable()).indexOf("\r\n\r\n");
    }

    QTcpServer m_server;
};

} // namespace corvane
