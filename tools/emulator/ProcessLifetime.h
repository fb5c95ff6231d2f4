#pragma once

#include <QSocketNotifier>

#include <memory>

namespace corvane::emulator {

/// Ends the application's event loop on SIGTERM and SIGINT, so that everything is closed in good order.
/// Null when the system grants no descriptor for them; the signals then end the process at once, as usual.
///
/// Call it before any thread starts: only threads made later leave these signals to it.
std::unique_ptr<QSocketNotifier> quitOnTermination();

/// Ends the application's event loop when standard input closes, which it does when the script
/// that holds its other end dies, however that happens. What comes in on it is thrown away.
std::unique_ptr<QSocketNotifier> quitWhenStandardInputCloses();

} // namespace corvane::emulator
