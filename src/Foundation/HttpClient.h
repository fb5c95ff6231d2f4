#pragma once

#include "Foundation/SerialQueue.h"

#include <QByteArray>
#include <QCoroTask>
#include <QNetworkAccessManager>
#include <QString>
#include <QUrl>

#include <stdexcept>

namespace corvane {

/// What a server answered, whatever it was.
struct HttpReply {
    /// 0: no HTTP status.
    int status = 0;
    QByteArray body;
};

/// No complete answer came, and why not, in words for the operator.
class HttpError : public std::runtime_error {
public:
    explicit HttpError(const QString& reason) : std::runtime_error(reason.toStdString()) { }
};

/// Asks HTTP servers, one GET at a time or several at once, directly and without a memory: no proxy, no
/// cache, no cookie and no credential is kept from one request to the next, and a redirection is an answer
/// like any other.
///
/// Confined to one queue; hold it until its requests have ended.
class HttpClient {
public:
    struct Limits {
        /// From the request to the last byte of its answer, so that a server that drips can't hold us up
        /// either.
        Duration time;
        /// Longer bodies end the request: a server must not be able to fill our memory.
        qint64 bodySize;
    };

    /// `queue` must run on this thread and outlive the client.
    HttpClient(SerialQueue& queue, Limits limits);
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;
    ~HttpClient() = default;

    /// Throws `HttpError` when no complete answer came. Any status is an answer.
    QCoro::Task<HttpReply> get(QUrl url);

    /// Requests under way finish, later ones fail at once. Safe to repeat.
    void invalidate() { m_isValid = false; }

    /// Invalidates, and requests under way fail on the queue's next turn. Safe to repeat.
    void abort();

private:
    SerialQueue& m_queue;
    const Limits m_limits;
    QNetworkAccessManager m_manager;
    bool m_isValid = true;
};

} // namespace corvane
