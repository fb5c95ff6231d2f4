#pragma once

#include <QByteArray>

#include <optional>

namespace corvane::emulator {

/// A value as it goes over the wire: with a backslash before each sign that the protocol uses itself.
QByteArray escapedForLW3(const QByteArray& value);

/// The value that a client means; absent if a sign stands bare that has to be escaped.
std::optional<QByteArray> readLW3Value(const QByteArray& escaped);

} // namespace corvane::emulator
