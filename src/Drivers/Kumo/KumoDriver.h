#pragma once

#include "Drivers/Contract/RouterDriver.h"
#include "Foundation/HttpClient.h"
#include "Foundation/SerialQueue.h"

#include <memory>
#include <optional>
#include <stop_token>

namespace corvane {

/// Routes an AJA KUMO over HTTP.
///
/// The device says nothing by itself: the driver reads back what each of its takes did, and looks at every
/// destination every two seconds for what others did. It doesn't notice a device that falls silent: a take
/// then fails, and that is all. Names and size are read at connect only. The device has one level, so levels
/// are ignored; locking is not offered.
///
/// Confined to the main thread. Always made by `std::make_shared`: the polling holds the driver weakly.
class KumoDriver final : public RouterDriver, public std::enable_shared_from_this<KumoDriver> {
public:
    /// `mainQueue` must outlive the driver.
    KumoDriver(RouterConnection connection, SerialQueue& mainQueue);
    ~KumoDriver() override;

    /// Reads the whole device, one value at a time: some hundred requests for a large one.
    QCoro::Task<> connect() override;
    /// Requests under way finish, and what they bring is dropped. Says no `Disconnected`.
    QCoro::Task<> disconnect() override;
    void abandon() override;
    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override;
    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override;
    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override;

private:
    enum class Reading { complete, abandoned };

    QCoro::Task<QByteArray> get(QString path);
    QCoro::Task<qint64> intParam(QString parameter);
    QCoro::Task<QString> readLabel(PortKind kind, qint64 index);
    /// The number, from 1, of the source that feeds a destination; nothing if the read failed.
    QCoro::Task<std::optional<qint64>> readStatus(qint64 destination);

    QCoro::Task<Reading> readSize();
    QCoro::Task<QList<Port>> readPorts(PortKind kind, qint64 count);
    QCoro::Task<> readRouting();
    [[nodiscard]] RouterState makeState(QList<Port> sources, QList<Port> destinations) const;
    /// For `connect`, after each name and route.
    void countValueRead();

    void startPolling();
    static QCoro::Task<> poll(std::weak_ptr<KumoDriver> weakDriver, SerialQueue& queue, std::stop_token stop);
    QCoro::Task<> pollRouting();
    /// Records and reports the source that now feeds a destination.
    void setRoute(qint64 destination, qint64 source);
    void requireConnection() const;

    const RouterConnection m_connection;
    SerialQueue& m_mainQueue;
    HttpClient m_client;
    std::stop_source m_pollStop;
    bool m_isConnected = false;
    bool m_isTorn = false;
    // Takes begun and takes read back: a polled value that was read while this changed may be stale.
    qint64 m_takeEpoch = 0;
    qint64 m_sourceCount = 0;
    qint64 m_destinationCount = 0;
    qint64 m_valuesRead = 0;
    LevelRouting m_routing;
};

} // namespace corvane
