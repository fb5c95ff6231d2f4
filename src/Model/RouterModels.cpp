#include "Model/RouterModels.h"

#include <QDateTime>

#include <algorithm>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

struct VendorEntry {
    const char* rawValue;
    const char* displayName;
    const char* symbol;
    qint64 defaultPort;
};

// By the vendor's ordinal.
constexpr std::array<VendorEntry, allRouterVendors.size()> vendorTable{{
    {"simulator", "Simulator", "waveform.path", 0},
    {"blackmagicVideohub", "Blackmagic Videohub", "rectangle.connected.to.line.below", 9990},
    {"rossUltrix", "Ross Ultrix", "square.grid.3x3.fill", 2000},
    {"ajaKumo", "AJA KUMO", "network", 80},
    {"genericSWP08", "Generic SW-P-08", "point.3.connected.trianglepath.dotted", 2000},
    {"lightware", "Lightware MX2", "square.grid.4x3.fill", 6107},
    {"evertzQuartz", "Evertz (Quartz)", "rectangle.split.3x3", 23},
}};

const VendorEntry& entry(RouterVendor vendor)
{
    return vendorTable.at(static_cast<std::size_t>(vendor));
}

QString portID(PortKind kind, qint64 index)
{
    return u"%1-%2"_s.arg(rawValue(kind)).arg(index);
}

RouterConnection sample(const QString& name, RouterVendor vendor, const QString& host)
{
    RouterConnection router;
    router.name = name;
    router.vendor = vendor;
    router.host = host;
    router.port = defaultPort(vendor);
    return router;
}

} // namespace

QString rawValue(RouterVendor vendor)
{
    return QString::fromLatin1(entry(vendor).rawValue);
}

std::optional<RouterVendor> routerVendorFromRawValue(const QString& rawValue)
{
    const auto* const found = std::ranges::find_if(
        allRouterVendors, [&](RouterVendor vendor) { return corvane::rawValue(vendor) == rawValue; });
    return found == allRouterVendors.end() ? std::nullopt : std::optional(*found);
}

QString displayName(RouterVendor vendor)
{
    return QString::fromLatin1(entry(vendor).displayName);
}

QString symbolName(RouterVendor vendor)
{
    return QString::fromLatin1(entry(vendor).symbol);
}

qint64 defaultPort(RouterVendor vendor)
{
    return entry(vendor).defaultPort;
}

QString RouterConnection::endpointDescription() const
{
    if (vendor == RouterVendor::simulator)
        return u"In-memory demo router"_s;
    if (host.isEmpty() && bonjourName)
        return *bonjourName + u" · Bonjour"_s;
    return u"%1:%2"_s.arg(host, QString::number(port));
}

QString idText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QList<RouterConnection> sampleRouters()
{
    return {
        sample(u"Demo Router"_s, RouterVendor::simulator, QString()),
        sample(u"Studio Videohub"_s, RouterVendor::blackmagicVideohub, u"192.168.1.50"_s),
        sample(u"Ultrix Main"_s, RouterVendor::rossUltrix, u"192.168.1.60"_s),
    };
}

QString rawValue(PortKind kind)
{
    return kind == PortKind::source ? u"source"_s : u"destination"_s;
}

QString Port::id() const
{
    return portID(kind, index);
}

QString PortRef::id() const
{
    return portID(kind, index);
}

size_t qHash(const PortRef& port, size_t seed)
{
    return qHashMulti(seed, static_cast<int>(port.kind), port.index);
}

std::optional<qint64> RouterState::source(qint64 destination, qint64 level) const
{
    const auto levelRouting = routing.constFind(level);
    if (levelRouting == routing.constEnd())
        return std::nullopt;
    const auto found = levelRouting->constFind(destination);
    return found == levelRouting->constEnd() ? std::nullopt : std::optional(*found);
}

RouterState RouterState::empty(const RouterConnection& connection)
{
    RouterState state;
    state.deviceName = connection.name;
    state.vendor = connection.vendor;
    return state;
}

Timestamp Timestamp::now()
{
    static const auto epoch = QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    return {static_cast<double>(epoch.msecsTo(QDateTime::currentDateTimeUtc())) / 1000.0};
}

} // namespace corvane
