#pragma once

#include "Drivers/Contract/DriverError.h"
#include "Foundation/EventStream.h"
#include "Model/RouterModels.h"

#include <QCoroTask>

#include <functional>
#include <optional>
#include <utility>
#include <variant>

namespace corvane {

/// What a driver tells its controller; there is no other way.
namespace driverEvent {

/// Progress for the operator while connecting.
struct Status {
    QString text;
    bool operator==(const Status&) const = default;
};
/// The first complete picture of the device: the link is up.
struct Connected {
    RouterState state;
    bool operator==(const Connected&) const = default;
};
/// A later complete picture.
struct StateReplaced {
    RouterState state;
    bool operator==(const StateReplaced&) const = default;
};
/// One crosspoint changed. No source: the destination is no longer routed.
struct RouteChanged {
    qint64 level = 0;
    qint64 destination = 0;
    std::optional<qint64> source;
    bool operator==(const RouteChanged&) const = default;
};
/// The device's own name of a port changed.
struct LabelChanged {
    PortKind kind = PortKind::source;
    qint64 index = 0;
    QString label;
    bool operator==(const LabelChanged&) const = default;
};
struct LockChanged {
    qint64 destination = 0;
    bool locked = false;
    bool operator==(const LockChanged&) const = default;
};
/// Absent status: nothing is known of this source's signal any more.
struct InputStatusChanged {
    qint64 input = 0;
    std::optional<InputSignalStatus> status;
    bool operator==(const InputStatusChanged&) const = default;
};
/// The link went down. The reason, when present, is shown as the status line.
struct Disconnected {
    std::optional<QString> reason;
    bool operator==(const Disconnected&) const = default;
};
/// The connection itself failed.
struct Error {
    QString message;
    bool operator==(const Error&) const = default;
};
/// The device declined one command; the connection stays up.
struct CommandRefused {
    QString message;
    bool operator==(const CommandRefused&) const = default;
};

} // namespace driverEvent

using RouterDriverEvent = std::variant<driverEvent::Status, driverEvent::Connected,
    driverEvent::StateReplaced, driverEvent::RouteChanged, driverEvent::LabelChanged,
    driverEvent::LockChanged, driverEvent::InputStatusChanged, driverEvent::Disconnected, driverEvent::Error,
    driverEvent::CommandRefused>;

using RouterEventStream = EventStream<RouterDriverEvent>;

/// One connection attempt to one router.
///
/// A command only says that it was sent, or throws `DriverError` if it was not; what the device really did
/// arrives later as events. A driver is never optimistic, never repeats a command and never reconnects.
/// Commands are called on the main thread and suspend their caller instead of blocking it. All indices are
/// zero-based.
///
/// The object must be held by the caller until a command's task has finished.
class RouterDriver {
public:
    RouterDriver() = default;
    RouterDriver(const RouterDriver&) = delete;
    RouterDriver& operator=(const RouterDriver&) = delete;
    virtual ~RouterDriver() = default;

    /// One ordered stream a driver, with exactly one consumer. Events from before the consumer started are
    /// kept for it.
    [[nodiscard]] const RouterEventStream& events() const { return m_events; }

    /// How far the reading of the device has come while it connects, 0 to 1; absent when that is over.
    using ReadingProgressHandler = std::function<void(std::optional<double> fraction)>;

    /// `handler` is called on the main thread, by drivers that know how much there is to read, and never
    /// after `disconnect`. Set before `connect`.
    void onReadingProgress(ReadingProgressHandler handler) { m_onReadingProgress = std::move(handler); }

    /// Starts the link. Success and failure are events.
    virtual QCoro::Task<> connect() = 0;

    /// Ends the link and finishes the stream. Safe to repeat.
    virtual QCoro::Task<> disconnect() = 0;

    /// For the end of the program: disconnects, and breaks off what `disconnect` lets finish. Safe to repeat.
    virtual void abandon() { disconnect(); }

    /// Makes one crosspoint.
    virtual QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) = 0;

    /// Makes all the crosspoints, in order. Unless a driver can do better, one `take` each, and the first
    /// that throws ends it: what was routed before stays routed.
    virtual QCoro::Task<> takeAll(QList<Route> routes);

    /// Locks are a destination's; drivers whose protocol has none throw `unsupported` with
    /// `feature::locking`.
    virtual QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) = 0;

    /// Names a port on the device; drivers whose protocol can't throw `unsupported` with `feature::renaming`.
    virtual QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) = 0;

protected:
    void yield(RouterDriverEvent event) const { m_events.yield(std::move(event)); }

    /// On the main thread only.
    void tellReadingProgress(std::optional<double> fraction) const;

private:
    RouterEventStream m_events;
    ReadingProgressHandler m_onReadingProgress;
};

} // namespace corvane
