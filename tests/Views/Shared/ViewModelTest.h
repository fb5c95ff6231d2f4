#pragma once

#include "Theme/GlassKit.h"
#include "support/ControllerTest.h"

namespace corvane {

/// A model of a screen on a controller that does as the test says.
template <typename Model>
class ViewModelTest : public ControllerTest {
protected:
    void SetUp() override { model.setController(controller.get()); }

    GlassKit theme{nullptr};
    Model model{theme};
};

/// Counts how often a model tells of something.
class Tellings {
public:
    template <typename Teller, typename Signal>
    Tellings(const Teller& teller, Signal signal)
    {
        QObject::connect(&teller, signal, &m_context, [this] { ++m_count; });
    }

    /// Since the last call.
    [[nodiscard]] int count() { return std::exchange(m_count, 0); }

private:
    QObject m_context;
    int m_count = 0;
};

} // namespace corvane
