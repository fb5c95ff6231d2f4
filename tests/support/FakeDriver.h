#pragma once

#include "Drivers/Contract/RouterDriver.h"

#include <exception>
#include <string>
#include <vector>

namespace corvane {

/// A driver that does as the test says: it notes each call, fails on request and reports what it is given,
/// until it is disconnected.
class FakeDriver final : public RouterDriver {
public:
    /// In order, for example "connect", "takeAll 0:5<3 1:5<3" (level:destination<source), "setLock 5 0 true",
    /// "setLabel source 3 Cam", "disconnect".
    std::vector<std::string> calls;
    /// What `takeAll`, `setLock` and `setLabel` throw, once noted.
    std::exception_ptr failure;

    template <typename Exception>
    void failWith(const Exception& exception)
    {
        failure = std::make_exception_ptr(exception);
    }

    void report(RouterDriverEvent event) const { yield(std::move(event)); }
    void reportProgress(std::optional<double> fraction) const { tellReadingProgress(fraction); }

    QCoro::Task<> connect() override
    {
        calls.emplace_back("connect");
        co_return;
    }

    QCoro::Task<> disconnect() override
    {
        calls.emplace_back("disconnect");
        events().finish();
        co_return;
    }

    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override
    {
        return takeAll({Route{level, destination, source}});
    }

    QCoro::Task<> takeAll(QList<Route> routes) override
    {
        std::string call = "takeAll";
        for (const auto& route : std::as_const(routes))
            call += " " + std::to_string(route.level) + ":" + std::to_string(route.destination) + "<"
                + std::to_string(route.source);
        note(call);
        co_return;
    }

    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override
    {
        note("setLock " + std::to_string(destination) + " " + std::to_string(level)
            + (locked ? " true" : " false"));
        co_return;
    }

    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override
    {
        note("setLabel " + rawValue(kind).toStdString() + " " + std::to_string(index) + " "
            + label.toStdString());
        co_return;
    }

private:
    void note(const std::string& call)
    {
        calls.push_back(call);
        if (failure)
            std::rethrow_exception(failure);
    }
};

} // namespace corvane
