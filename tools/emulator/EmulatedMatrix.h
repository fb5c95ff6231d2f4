#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

namespace corvane::emulator {

/// Names one connected client of one matrix, whatever face it came in by.
using ClientId = quint64;

/// Owns the locks that no connected client made: a person at the front panel, say.
inline constexpr ClientId somebodyElse = 0;

/// What a destination shows that is connected to nothing.
inline constexpr int noSource = -1;

enum class Side { Source, Destination };

/// All indexes count from 0.
struct Crosspoint {
    int level = 0;
    int destination = 0;
    int source = 0;
    bool operator==(const Crosspoint&) const = default;
};

struct LabelChange {
    Side side = Side::Source;
    int index = 0;
    QString text;
    bool operator==(const LabelChange&) const = default;
};

struct LockChange {
    int destination = 0;
    std::optional<ClientId> owner;
    bool operator==(const LockChange&) const = default;
};

/// Everything a matrix knows, as a value. The lengths of the label lists are its size.
struct MatrixState {
    QStringList sourceLabels;
    QStringList destinationLabels;
    /// The source of each destination, by level and then by destination.
    QList<QList<int>> routes;
    QList<std::optional<ClientId>> lockOwners;

    /// Labels "Input 1" and "Output 1" and so on; every destination shows the source of its own number,
    /// beginning again at the first when there are more destinations than sources.
    static MatrixState ofSize(int sources, int destinations, int levels = 1);
};

/// A router's memory, which every face and every client of it share.
///
/// A change is announced once, with only what really changed, and only after all of it is in place.
/// Lives on one thread together with the servers that show it, and must outlive them.
class EmulatedMatrix : public QObject {
    Q_OBJECT

public:
    explicit EmulatedMatrix(MatrixState state, QObject* parent = nullptr);
    EmulatedMatrix(int sources, int destinations, int levels = 1);

    int count(Side side) const { return static_cast<int>(labels(side).size()); }
    int levelCount() const { return static_cast<int>(m_state.routes.size()); }
    bool has(Side side, int index) const { return index >= 0 && index < count(side); }
    bool hasLevel(int level) const { return level >= 0 && level < levelCount(); }

    /// These three expect indexes that exist.
    int source(int level, int destination) const { return m_state.routes[level][destination]; }
    QString label(Side side, int index) const { return labels(side)[index]; }
    std::optional<ClientId> lockOwner(int destination) const { return m_state.lockOwners[destination]; }

    /// Whether a lock of somebody other than `client` keeps it from changing the destination.
    bool isLockedAgainst(ClientId client, int destination) const;

    /// Each changes all that is asked for, or nothing (and returns false) if any index doesn't exist.
    /// Locks are not looked at: that is for the face to refuse, and somebody else may always do it.
    bool setRoutes(const QList<Crosspoint>& routes);
    bool setLabels(const QList<LabelChange>& labels);
    bool setLocks(const QList<LockChange>& locks);

    /// Becomes another matrix, of another size perhaps, like a frame that was swapped.
    void replace(MatrixState state);

    /// An id that no other client of this matrix has had.
    ClientId nextClientId() { return ++m_lastClientId; }

signals:
    void routesChanged(const QList<corvane::emulator::Crosspoint>& routes);
    void labelsChanged(const QList<corvane::emulator::LabelChange>& labels);
    void locksChanged(const QList<corvane::emulator::LockChange>& locks);
    void replaced();

private:
    const QStringList& labels(Side side) const;
    QStringList& labels(Side side);

    MatrixState m_state;
    ClientId m_lastClientId = somebodyElse;
};

} // namespace corvane::emulator
