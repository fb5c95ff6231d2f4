#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

/// The text of a property's value as it stands on the wire: what the protocol uses as a mark has a backslash
/// before it, and a line break or tab is a backslash and a letter.
namespace corvane::lw3Value {

[[nodiscard]] QByteArray fromText(const QString& text);

/// Up to `text::longestName` characters. A backslash before any other sign, or at the end, is
/// one itself: some firmware does not escape.
[[nodiscard]] QString toText(std::string_view value);

} // namespace corvane::lw3Value
