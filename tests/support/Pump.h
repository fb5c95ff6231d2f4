#pragma once

#include "support/ManualQueue.h"

#include <functional>
#include <initializer_list>

namespace corvane {

/// Lets real sockets and the given queues work until `condition` holds. False if that takes absurdly long,
/// which is a failure and not a measure of time: the wait ends the moment the condition holds.
[[nodiscard]] bool pumpUntil(
    const std::function<bool()>& condition, std::initializer_list<ManualQueue*> queues = {});

/// Lets everything that is under way on this thread settle: for showing that something does not happen.
void pumpUntilIdle(std::initializer_list<ManualQueue*> queues = {});

} // namespace corvane
