#pragma once

#include <QEasingCurve>

#include <chrono>

namespace corvane {

/// A spring that pulls from 0 to 1 and is let go at rest. `response` is the period it would swing with
/// undamped; at a `damping` of 1 it doesn't overshoot.
struct Spring {
    std::chrono::duration<double> response;
    double damping = 1;
};

/// Where the spring is after `time`: 0 at first, 1 when it has settled.
[[nodiscard]] double springPosition(const Spring& spring, std::chrono::duration<double> time);

/// How long until it stays within a thousandth of 1, a small fraction of a pixel for everything that moves
/// here.
[[nodiscard]] std::chrono::milliseconds settlingTime(const Spring& spring);

/// What moves when bars and cells change their size or arrangement.
inline constexpr Spring layoutSpring{std::chrono::milliseconds(500), 0.85};
/// What moves when a crosspoint is made or cleared.
inline constexpr Spring crosspointSpring{std::chrono::milliseconds(280), 1.0};

/// The spring as an easing for animations that last its settling time.
[[nodiscard]] QEasingCurve layoutSpringCurve();

} // namespace corvane
