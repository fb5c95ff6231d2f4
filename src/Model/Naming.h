#pragma once

#include <QString>

/// The rules for the names of ports, panels, salvos and routers, whoever gives them.
namespace corvane::naming {

/// The longest name that is kept, in UTF-16 code units.
inline constexpr qsizetype longest = 1024;

/// A name that an operator typed, pasted, imported or dropped, as it is kept: line breaks and control
/// characters become blanks, for several protocols end a command with them; white space goes from both ends;
/// the rest is cut to `longest`.
[[nodiscard]] QString entered(const QString& name);

/// A name that a device or a file gives, cut to `longest`. A character of two units is not split.
[[nodiscard]] QString kept(const QString& name);

} // namespace corvane::naming
