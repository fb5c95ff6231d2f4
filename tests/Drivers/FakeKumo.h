#pragma once

#include "Foundation/HttpClient.h"

#include <QHash>
#include <QStringList>
#include <QUrlQuery>

#include <coroutine>
#include <deque>

namespace corvane {

/// What a KUMO and the way to it do in a test. Each request is answered from what the device held when it was
/// asked, at once, or when the test releases it.
struct FakeKumo {
    /// The whole body of the reply to each parameter's reading.
    QHash<QString, QByteArray> bodies;
    /// The statuses of requests that don't get 200; 0 is no answer at all.
    QHash<QString, int> statuses;
    bool ignoresSets = false;
    bool isHeld = false;

    QStringList requests;
    std::deque<std::coroutine_handle<>> held;
    bool isInvalidated = false;

    void set(const QString& parameter, const QByteArray& value)
    {
        bodies[parameter] = "{\"value\":" + value + "}";
    }

    HttpReply answer(const QUrl& url)
    {
        const QUrlQuery query(url);
        const auto parameter = query.queryItemValue(QStringLiteral("paramid"));
        if (query.queryItemValue(QStringLiteral("action")) == QStringLiteral("get"))
            return {200, bodies.value(parameter)};
        if (!ignoresSets)
            set(parameter, '"' + query.queryItemValue(QStringLiteral("value")).toUtf8() + '"');
        return {200, "not looked at"};
    }
};

/// The way to a `FakeKumo`, which must outlive it.
class FakeKumoClient final : public HttpClient {
public:
    explicit FakeKumoClient(FakeKumo& kumo) : m_kumo(kumo) { m_kumo.isInvalidated = false; }

    QCoro::Task<HttpReply> get(QUrl url) override
    {
        if (m_kumo.isInvalidated)
            throw HttpError(QStringLiteral("Closed"));
        const auto request = url.toString(QUrl::FullyEncoded);
        m_kumo.requests.append(request);
        const auto status = m_kumo.statuses.value(request, 200);
        const auto reply = status == 200 ? m_kumo.answer(url) : HttpReply{status, "<html></html>"};
        co_await Hold{m_kumo};
        if (status == 0)
            throw HttpError(QStringLiteral("Nobody there"));
        co_return reply;
    }

    void invalidate() override { m_kumo.isInvalidated = true; }

private:
    struct Hold {
        FakeKumo& kumo;

        bool await_ready() const noexcept { return !kumo.isHeld; }
        void await_suspend(std::coroutine_handle<> waiting) const { kumo.held.push_back(waiting); }
        void await_resume() const noexcept { }
    };

    FakeKumo& m_kumo;
};

} // namespace corvane
