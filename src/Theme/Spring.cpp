#include "Theme/Spring.h"

#include <cmath>
#include <numbers>

namespace corvane {

namespace {

constexpr double settledDistance = 0.001;

// A custom easing is a plain function, so each spring gets one of its own.
template <const Spring& spring>
double eased(qreal progress)
{
    static const std::chrono::duration<double> whole = settlingTime(spring);
    return progress >= 1 ? 1 : springPosition(spring, whole * progress);
}

template <const Spring& spring>
QEasingCurve curve()
{
    QEasingCurve easing;
    easing.setCustomType(eased<spring>);
    return easing;
}

double frequency(const Spring& spring)
{
    return 2 * std::numbers::pi / spring.response.count();
}

} // namespace

double springPosition(const Spring& spring, std::chrono::duration<double> time)
{
    const double omega = frequency(spring);
    const double t = time.count();
    const double decay = spring.damping * omega;
    if (spring.damping >= 1)
        return 1 - std::exp(-omega * t) * (1 + omega * t);
    const double swing = omega * std::sqrt(1 - spring.damping * spring.damping);
    return 1 - std::exp(-decay * t) * (std::cos(swing * t) + decay / swing * std::sin(swing * t));
}

std::chrono::milliseconds settlingTime(const Spring& spring)
{
    using namespace std::chrono_literals;
    // A swing may pass through 1, so the last moment outside is looked for from far behind.
    const auto isSettled = [&](auto time) {
        return std::abs(1 - springPosition(spring, time)) <= settledDistance;
    };
    auto time = std::chrono::duration_cast<std::chrono::milliseconds>(spring.response * 10);
    while (time > 0ms && isSettled(time - 1ms))
        time -= 1ms;
    return time;
}

QEasingCurve layoutSpringCurve()
{
    return curve<layoutSpring>();
}

} // namespace corvane
