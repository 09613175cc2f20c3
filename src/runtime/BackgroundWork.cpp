#include "runtime/BackgroundWork.h"

#include <chrono>
#include <future>

namespace tarnwell {

void workBeside(const std::function<void()>& work, const std::function<void()>& meanwhile) {
    constexpr std::chrono::milliseconds betweenLooks{10};
    std::future<void> end = std::async(std::launch::async, work);
    while (end.wait_for(betweenLooks) != std::future_status::ready)
        meanwhile();
    end.get();
}

} // namespace tarnwell
