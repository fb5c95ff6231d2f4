#pragma once

#include "Foundation/ProfileLock.h"

#include <chrono>

namespace corvane {

/// The program: what lives as long as the process does, and the order in which it comes up. Make it once
/// there is an application object, and name it first: preferences are kept under the application's name.
class CorvaneApp {
public:
    /// A copy that runs already is given `patience` to answer, or to end.
    explicit CorvaneApp(std::chrono::milliseconds patience = std::chrono::seconds(5));

    /// Shows the window and runs until it is closed. A second copy on the same data brings the first one
    /// forward instead, or says that it doesn't answer. Returns the process's exit code.
    int run();

private:
    int runOnOwnFolder();

    const std::chrono::milliseconds m_patience;
    ProfileLock m_lock;
};

} // namespace corvane
