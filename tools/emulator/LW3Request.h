#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace corvane::emulator {

/// A line like "0001#CALL /MEDIA/XP/VIDEO:switch(I1:O2)", taken apart.
struct LW3Request {
    /// Four characters that the answer is to carry, if the client wants any.
    std::optional<QByteArray> signature;
    /// "GET", "SET" and so on.
    QByteArray verb;
    /// What the verb is about, to the end of the line.
    QByteArray argument;
};

LW3Request readLW3Request(const QByteArray& line);

/// The halves of a text around the first separator; the whole and nothing if there is none.
struct LW3Halves {
    QByteArray before;
    QByteArray after;
};

LW3Halves splitFirst(const QByteArray& text, char separator);

/// A method call without its node: "switch(I1:O2;I3:O4)".
struct LW3Call {
    QByteArray method;
    QList<QByteArray> parameters;
};

/// Absent if the parentheses aren't what they should be.
std::optional<LW3Call> readLW3Call(const QByteArray& text);

} // namespace corvane::emulator
