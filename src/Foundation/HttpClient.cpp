#include "Foundation/HttpClient.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <coroutine>
#include <memory>
#include <optional>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct DeleteLater {
    void operator()(QNetworkReply* reply) const { reply->deleteLater(); }
};

/// Awaitable: resumes on the queue, never inside one of the reply's own signals, once the reply has ended or
/// has been cut off at one of the limits.
class Exchange {
public:
    Exchange(SerialQueue& queue, QNetworkReply* reply, HttpClient::Limits limits)
        : m_queue(queue), m_reply(reply), m_limits(limits)
    {
        // One byte beyond the limit shows that there is more; nothing after it is taken off the wire.
        m_reply->setReadBufferSize(limits.bodySize + 1);
    }

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting);
    [[nodiscard]] HttpReply await_resume() const;

private:
    void cutOff(const QString& reason);

    SerialQueue& m_queue;
    std::unique_ptr<QNetworkReply, DeleteLater> m_reply;
    HttpClient::Limits m_limits;
    WorkItem m_deadline;
    std::optional<QString> m_cutOff;
};

void Exchange::await_suspend(std::coroutine_handle<> waiting)
{
    auto* const reply = m_reply.get();
    const auto wake = [this, waiting] {
        m_deadline.cancel();
        m_queue.async([waiting] { waiting.resume(); });
    };
    if (reply->isFinished()) {
        wake();
        return;
    }
    QObject::connect(reply, &QNetworkReply::finished, reply, wake, Qt::SingleShotConnection);
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [this] {
        if (m_reply->bytesAvailable() > m_limits.bodySize)
            cutOff(u"The reply is longer than %1 bytes"_s.arg(m_limits.bodySize));
    });
    m_deadline = m_queue.after(m_limits.time, [this] {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(m_limits.time);
        cutOff(u"Timed out after %1 seconds"_s.arg(seconds.count()));
    });
}

void Exchange::cutOff(const QString& reason)
{
    if (m_reply->isFinished())
        return;
    m_cutOff = reason;
    m_reply->abort();
}

HttpReply Exchange::await_resume() const
{
    if (m_cutOff)
        throw HttpError(*m_cutOff);
    const auto status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // From 400 on the error only repeats the status; below, it says that the answer is not whole.
    if (status < 400 && m_reply->error() != QNetworkReply::NoError)
        throw HttpError(m_reply->errorString());
    return {status, m_reply->readAll()};
}

QNetworkRequest plainRequest(const QUrl& url)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    return request;
}

} // namespace

HttpClient::HttpClient(SerialQueue& queue, Limits limits) : m_queue(queue), m_limits(limits)
{
    m_manager.setProxy(QNetworkProxy::NoProxy);
}

QCoro::Task<HttpReply> HttpClient::get(QUrl url)
{
    Q_ASSERT(m_queue.isCurrent());
    if (!m_isValid)
        throw HttpError(u"The connection has been closed"_s);
    co_return co_await Exchange(m_queue, m_manager.get(plainRequest(url)), m_limits);
}

void HttpClient::abort()
{
    invalidate();
    const auto replies = m_manager.findChildren<QNetworkReply*>();
    for (auto* const reply : replies)
        reply->abort();
}

} // namespace corvane
