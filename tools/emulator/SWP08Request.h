#pragma once

#include <QByteArray>

#include <optional>

namespace corvane::emulator {

/// A question for one crosspoint, or a take. All numbers count from 0.
struct SWP08Request {
    enum class Kind { Question, Take };
    Kind kind = Kind::Question;
    /// Whether it came in the extended form, which has two bytes for each number.
    bool isExtended = false;
    int matrix = 0;
    int level = 0;
    int destination = 0;
    /// Only a take has one.
    int source = 0;
};

/// Absent if the payload is another message.
std::optional<SWP08Request> readSwp08Request(const QByteArray& payload);

} // namespace corvane::emulator
