#pragma once

#include "Model/RouterModels.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <stdexcept>
#include <variant>

/// The words of the KUMO's language: a table of named parameters, each read or set by one GET.
///
/// Parameters count ports from 1; every index here is zero-based, and any value of it is safe.
namespace corvane::KumoParser {

/// What a device gave as a parameter's value. Arrays, objects, true, false and null are `Other`: good for
/// nothing.
struct Other {
    bool operator==(const Other&) const = default;
};
using Value = std::variant<Other, qint64, double, QString>;

/// The reply is not JSON.
class ReplyError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The member `value` of the object that `body` must be; nothing if it is no object or has no such member.
/// Throws `ReplyError` if `body` is not JSON. Invalid UTF-8 is repaired.
[[nodiscard]] std::optional<Value> parameterValue(const QByteArray& body);

/// A number, or a text that is wholly one; fractions of a number are cut off.
[[nodiscard]] std::optional<qint64> integer(const Value& value);

/// A port's own name, if that is what this is.
[[nodiscard]] std::optional<QString> label(const Value& value);

[[nodiscard]] QString sourceCountParameter();
[[nodiscard]] QString destinationCountParameter();
[[nodiscard]] QString labelParameter(PortKind kind, qint64 index);
[[nodiscard]] QString statusParameter(qint64 destination);

/// `port` 0 is that of the web. Not every host and port make an address that is valid.
[[nodiscard]] QString baseURL(const QString& host, qint64 port);

/// What follows the base address in a request. The label is percent-encoded here.
[[nodiscard]] QString readPath(const QString& parameter);
[[nodiscard]] QString setRoutePath(qint64 source, qint64 destination);
[[nodiscard]] QString setLabelPath(const QString& parameter, const QString& label);

} // namespace corvane::KumoParser
