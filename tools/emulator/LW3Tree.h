#pragma once

#include "emulator/EmulatedMatrix.h"

#include <QByteArray>
#include <QList>
#include <QMap>

#include <optional>

namespace corvane::emulator {

/// How families and firmware versions differ. Each is off on an MX2.
struct LW3Quirks {
    /// Names are "Camera" instead of "1;Camera".
    bool plainNames = false;
    /// What stands before the semicolon of a name.
    QByteArray namePrefix = "1";
    /// A tree without locks: neither their list nor the methods.
    bool omitLocks = false;
    /// Lists end in ";".
    bool trailingSemicolon = false;
    /// What stands behind the method in the answer to a call that worked: "=OK", "=" or nothing.
    QByteArray callResult = "=OK";
    /// What every error begins with: "-E", "mF" and so on. The one that fits what failed where empty.
    QByteArray errorPrefix = "";
    /// Errors are told without "%E002:" and the like.
    bool omitErrorCodes = false;
    /// A change is told before the closing brace of the command that made it.
    bool changesInsideBlock = false;
    /// How often each change is told.
    int changeRepeats = 1;
};

namespace lw3 {

inline constexpr auto root = "/";
inline constexpr auto names = "/MEDIA/NAMES/VIDEO";
inline constexpr auto crosspoints = "/MEDIA/XP/VIDEO";
inline constexpr auto routeList = "DestinationConnectionStatus";
inline constexpr auto lockList = "DestinationPortStatus";

/// "I1" or "O1" for the first of a side.
QByteArray portName(Side side, int index);

/// The node that tells of one input's signal.
QByteArray statusNode(int input);

} // namespace lw3

struct LW3Property {
    enum class Access { ReadOnly, Writable };
    QByteArray node;
    QByteArray name;
    /// Not escaped.
    QByteArray value;
    Access access = Access::ReadOnly;

    /// "/NODE.Name=value", escaped.
    QByteArray text() const;
    /// The same as the answer to a question.
    QByteArray line() const { return (access == Access::Writable ? "pw " : "pr ") + text(); }
};

/// What the tree tells of besides the matrix.
struct LW3Device {
    /// Made from the size where empty.
    QByteArray productName;
    /// What inputs receive, like "1920x1080p60"; empty if there is nothing. Every fourth input has no signal
    /// unless it says otherwise here, and the others have one.
    QMap<int, QByteArray> resolutions;
};

/// The properties and methods under which a matrix is seen. Refers to what it is made with.
class LW3Tree {
public:
    LW3Tree(const EmulatedMatrix& matrix, const LW3Quirks& quirks, const LW3Device& device)
        : m_matrix(matrix), m_quirks(quirks), m_device(device)
    {
    }

    bool has(const QByteArray& node) const { return properties(node).has_value(); }

    /// Absent if there is no such node.
    std::optional<QList<LW3Property>> properties(const QByteArray& node) const;
    std::optional<LW3Property> property(const QByteArray& node, const QByteArray& name) const;
    QList<QByteArray> methods(const QByteArray& node) const;

    /// The port that "I1" or "O1" names.
    struct Port {
        Side side = Side::Source;
        int index = 0;
    };
    std::optional<Port> port(const QByteArray& name) const;

private:
    QList<LW3Property> deviceProperties() const;
    QList<LW3Property> nameProperties() const;
    QList<LW3Property> crosspointProperties() const;
    QList<LW3Property> statusProperties(int input) const;
    LW3Property countOf(Side side, const QByteArray& name) const;
    QByteArray list(QByteArray (LW3Tree::*item)(int) const) const;
    QByteArray routeItem(int destination) const;
    QByteArray lockItem(int destination) const;
    QByteArray productName() const;
    std::optional<int> inputOf(const QByteArray& node) const;

    const EmulatedMatrix& m_matrix;
    const LW3Quirks& m_quirks;
    const LW3Device& m_device;
};

} // namespace corvane::emulator
