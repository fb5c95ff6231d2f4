#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <array>
#include <optional>
#include <variant>

/// The values that every other part of the program exchanges.
///
/// A port is named by its zero-based `index` on the device, a level by its `index` field (not by its place in
/// `RouterState::levels`), a saved router by its `id`. Records refer to one another by these, never by
/// pointer.
namespace corvane {

using namespace Qt::StringLiterals;

enum class RouterVendor {
    simulator,
    blackmagicVideohub,
    rossUltrix,
    ajaKumo,
    genericSWP08,
    lightware,
    evertzQuartz
};

/// All vendors in the order in which pickers list them.
inline constexpr std::array allRouterVendors{RouterVendor::simulator, RouterVendor::blackmagicVideohub,
    RouterVendor::rossUltrix, RouterVendor::ajaKumo, RouterVendor::genericSWP08, RouterVendor::lightware,
    RouterVendor::evertzQuartz};

/// The text that stands for the vendor in files.
QString rawValue(RouterVendor vendor);
/// Absent for a text that no vendor has.
std::optional<RouterVendor> routerVendorFromRawValue(const QString& rawValue);
QString displayName(RouterVendor vendor);
/// A symbol name; the theme maps it to a glyph.
QString symbolName(RouterVendor vendor);
/// The TCP port that the vendor's routers listen on; 0 for the simulator.
qint64 defaultPort(RouterVendor vendor);

/// A saved router.
struct RouterConnection {
    QUuid id = QUuid::createUuid();
    QString name = u"Router"_s;
    RouterVendor vendor = RouterVendor::blackmagicVideohub;
    /// IP address or host name; empty for the simulator and for a router reached by its Bonjour service.
    QString host;
    /// As the operator typed it: what does not fit a TCP port is clamped where the connection is made.
    qint64 port = 9990;
    /// The size of a simulated router, and the declared size of routers whose protocol can't report one.
    qint64 simSourceCount = 16;
    qint64 simDestinationCount = 16;
    /// 0 to 1; absent means the vendor's own tint.
    std::optional<double> accentHue;
    std::optional<QString> bonjourName;
    std::optional<QString> bonjourType;
    std::optional<QString> bonjourDomain;

    bool operator==(const RouterConnection&) const = default;

    /// The one line that tells under a router's name where it is found.
    [[nodiscard]] QString endpointDescription() const;
};

/// The key of a router, panel or salvo in the saved files: upper-case UUID text, 8-4-4-4-12.
QString idText(const QUuid& id);

/// What a first run offers: one demo router and two addresses to edit, each with an id of its own.
QList<RouterConnection> sampleRouters();

enum class PortKind { source, destination };

QString rawValue(PortKind kind);

/// One input or output of a router, under its effective name.
struct Port {
    qint64 index = 0;
    PortKind kind = PortKind::source;
    QString label;
    bool operator==(const Port&) const = default;
    /// "source-3"
    [[nodiscard]] QString id() const;
};

/// Names one port without its label.
struct PortRef {
    PortKind kind = PortKind::source;
    qint64 index = 0;
    bool operator==(const PortRef&) const = default;
    [[nodiscard]] QString id() const;
};

size_t qHash(const PortRef& port, size_t seed = 0);

enum class LevelKind { video, audio, data, multi };

/// A layer of the matrix that can be switched on its own.
struct RouterLevel {
    qint64 index = 0;
    QString name;
    LevelKind kind = LevelKind::video;
    bool operator==(const RouterLevel&) const = default;
};

/// One crosspoint.
struct Route {
    qint64 level = 0;
    qint64 destination = 0;
    qint64 source = 0;
    bool operator==(const Route&) const = default;
};

/// What a device reports of the signal at one source.
struct InputSignalStatus {
    bool present = false;
    /// For example "1920x1080p59.94".
    std::optional<QString> format;
    bool operator==(const InputSignalStatus&) const = default;
};

/// Destination index to source index. No entry: unknown, or routed to nothing.
using LevelRouting = QHash<qint64, qint64>;

/// Everything known of a live router.
struct RouterState {
    QString deviceName;
    QString model;
    RouterVendor vendor = RouterVendor::simulator;
    /// In device order.
    QList<Port> sources;
    QList<Port> destinations;
    QList<RouterLevel> levels;
    /// By level index.
    QHash<qint64, LevelRouting> routing;
    /// A lock is a destination's, on all levels.
    QSet<qint64> lockedDestinations;
    /// By source index; empty for devices that report no signal.
    QHash<qint64, InputSignalStatus> inputStatus;

    bool operator==(const RouterState&) const = default;

    [[nodiscard]] std::optional<qint64> source(qint64 destination, qint64 level) const;
    [[nodiscard]] bool isLocked(qint64 destination) const { return lockedDestinations.contains(destination); }

    /// What a controller holds before any device has spoken.
    static RouterState empty(const RouterConnection& connection);
};

struct ConnectionFailed {
    QString message;
    bool operator==(const ConnectionFailed&) const = default;
};
struct Disconnected {
    bool operator==(const Disconnected&) const = default;
};
struct Connecting {
    bool operator==(const Connecting&) const = default;
};
struct Connected {
    bool operator==(const Connected&) const = default;
};
using ConnectionStatus = std::variant<ConnectionFailed, Disconnected, Connecting, Connected>;

/// `immediate`: a click routes at once. `confirm`: a click stages and a separate take routes.
enum class TakeMode { immediate, confirm };
enum class RouteViewMode { matrix, list };
/// `destinationLed`: destinations first, then a source. `sourceLed`: a source first, then its destinations.
enum class RoutingDirection { destinationLed, sourceLed };

/// A panel: a saved subset of a router's ports.
struct SubPanel {
    QUuid id = QUuid::createUuid();
    QString name;
    QList<qint64> sourceIndices;
    QList<qint64> destinationIndices;
    bool operator==(const SubPanel&) const = default;
};

/// Seconds since 2001-01-01 00:00:00 UTC; the fraction survives a save and a load exactly.
struct Timestamp {
    double seconds = 0;
    bool operator==(const Timestamp&) const = default;
    static Timestamp now();
};

/// A saved routing snapshot.
struct Salvo {
    QUuid id = QUuid::createUuid();
    QString name;
    QList<Route> routes;
    std::optional<Timestamp> savedAt;
    /// The panel whose destinations it covers; absent means the whole router.
    std::optional<QUuid> panelID;
    bool operator==(const Salvo&) const = default;
};

} // namespace corvane
