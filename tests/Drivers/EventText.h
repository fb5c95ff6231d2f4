#pragma once

#include "Drivers/Contract/RouterDriver.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace corvane {

// What every test of a driver is written with.
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// An event in one line, so that tests state what they expect as text and a failure can be read: "route
/// 0:3=5", "label source 0 Cam 1", "refused {text}". A whole state lists its parts in ascending order; ports
/// and levels tell no more than names and routes unless they are odd: out of their place, of another kind, or
/// anything but the one video level.
std::string eventText(const RouterDriverEvent& event);

/// Collects what a stream delivers.
class EventLog {
public:
    EventLog(const RouterEventStream& events, SerialQueue& queue);
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;
    ~EventLog() { m_stop.request_stop(); }

    /// What has come since the last call.
    [[nodiscard]] std::vector<std::string> takeNew();

    [[nodiscard]] const std::vector<std::string>& all() const { return m_texts; }
    [[nodiscard]] bool contains(const std::string& text) const;

private:
    std::vector<std::string> m_texts;
    std::size_t m_taken = 0;
    std::stop_source m_stop;
};

} // namespace corvane
