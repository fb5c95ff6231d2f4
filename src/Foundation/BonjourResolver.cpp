#include "Foundation/BonjourResolver.h"

#include <QSocketNotifier>
#include <QTimer>
#include <QtEndian>

#include <dns_sd.h>

#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct ServiceDeleter {
    void operator()(DNSServiceRef service) const { DNSServiceRefDeallocate(service); }
};
using ServiceHandle = std::unique_ptr<std::remove_pointer_t<DNSServiceRef>, ServiceDeleter>;

class Search {
public:
    Search(const ServiceEndpoint& service, std::function<void(ServiceResolution)> done)
        : m_done(std::move(done))
    {
        // Without this, the compatibility layer of Avahi prints a page of advice at the first call.
        qputenv("AVAHI_COMPAT_NOWARN", "1");
        DNSServiceRef handle = nullptr;
        const auto error =
            DNSServiceResolve(&handle, 0, kDNSServiceInterfaceIndexAny, service.name.toUtf8().constData(),
                service.type.toUtf8().constData(), service.domain.toUtf8().constData(), &Search::found, this);
        m_service.reset(handle);
        if (error != kDNSServiceErr_NoError) {
            // Never inside the caller, which has not got its handle yet.
            QTimer::singleShot(0, &m_context, [this, error] { finish(failure(error)); });
            return;
        }
        m_notifier = std::make_unique<QSocketNotifier>(DNSServiceRefSockFD(handle), QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, &m_context, [this] { process(); });
    }

private:
    static QString failure(DNSServiceErrorType error)
    {
        return u"Bonjour error %1"_s.arg(static_cast<int>(error));
    }

    static void found(DNSServiceRef, DNSServiceFlags, uint32_t, DNSServiceErrorType error, const char*,
        const char* host, uint16_t port, uint16_t, const unsigned char*, void* context)
    {
        auto& self = *static_cast<Search*>(context);
        if (error == kDNSServiceErr_NoError)
            self.m_result = HostEndpoint{QString::fromUtf8(host), qFromBigEndian(port)};
        else
            self.m_result = failure(error);
    }

    void process()
    {
        const auto error = DNSServiceProcessResult(m_service.get());
        if (error != kDNSServiceErr_NoError)
            m_result = failure(error);
        if (auto result = std::exchange(m_result, std::nullopt))
            finish(std::move(*result));
    }

    void finish(ServiceResolution result)
    {
        m_notifier.reset();
        m_service.reset();
        // The callback may drop us, so nothing of ours is touched after it.
        const auto done = std::exchange(m_done, nullptr);
        done(std::move(result));
    }

    std::function<void(ServiceResolution)> m_done;
    QObject m_context;
    ServiceHandle m_service;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::optional<ServiceResolution> m_result;
};

} // namespace

std::shared_ptr<void> resolveBonjourService(
    const ServiceEndpoint& service, std::function<void(ServiceResolution)> done)
{
    return std::make_shared<Search>(service, std::move(done));
}

} // namespace corvane
