#pragma once

#include "Foundation/ProfileLock.h"

namespace corvane {

/// The program: what lives as long as the process does, and the order in which it comes up. Make it once
/// there is an application object, and name it first: preferences are kept under the application's name.
class CorvaneApp {
public:
    CorvaneApp();

    /// Shows the window and runs until it is closed. A second copy on the same data only brings the first one
    /// forward. Returns the process's exit code.
    int run();

private:
    ProfileLock m_lock;
};

} // namespace corvane
