#include "Theme/Spring.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace corvane;
using namespace std::chrono_literals;

namespace {

TEST(Spring, MovesAsTheEquationOfADampedSwingTells)
{
    struct Case {
        const char* name;
        Spring spring;
        std::chrono::milliseconds time;
        double expected;
    };
    // Integrated step by step from x'' = (2π / response)² (1 - x) - 2 damping (2π / response) x'.
    const Case cases[] = {
        {"at rest", {500ms, 0.85}, 0ms, 0},
        {"under way", {500ms, 0.85}, 100ms, 0.3881},
        {"swung past", {500ms, 0.85}, 500ms, 1.0060},
        {"critically damped", {280ms, 1.0}, 100ms, 0.6560},
        {"critically damped later", {280ms, 1.0}, 280ms, 0.9864},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_NEAR(springPosition(c.spring, c.time), c.expected, 0.0005);
    }
}

TEST(Spring, StaysWithinAThousandthOnceItHasSettled)
{
    for (const auto& spring : {layoutSpring, crosspointSpring}) {
        const auto settled = settlingTime(spring);
        EXPECT_GT(std::abs(1 - springPosition(spring, settled - 2ms)), 0.001);
        for (auto time = settled; time < settled + 1s; time += 5ms)
            EXPECT_LE(std::abs(1 - springPosition(spring, time)), 0.001) << time.count();
    }
}

TEST(Spring, IsTheSameAsAnEasing)
{
    const auto halfway = settlingTime(layoutSpring) / 2.0;
    EXPECT_DOUBLE_EQ(layoutSpringCurve().valueForProgress(0.5), springPosition(layoutSpring, halfway));
    EXPECT_EQ(layoutSpringCurve().valueForProgress(1), 1);
}

} // namespace
