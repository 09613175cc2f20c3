#pragma once

#include <functional>

namespace tarnwell {

/// Runs `work` on a thread of its own, and `meanwhile` every 10 ms on the calling one, until the work has
/// ended. Raises what the work raised. `meanwhile` must not throw; it may handle events.
void workBeside(const std::function<void()>& work, const std::function<void()>& meanwhile);

} // namespace tarnwell
