#include <Services/Throttle.h>

#include <chrono>
#include <utility>

namespace tolvane {

Date steadyTime() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceStart).count();
}

Throttle::Throttle(Clock clock)
    : clock_(std::move(clock)) {}

bool Throttle::allow(Seconds interval) {
    const std::lock_guard lock(mutex_);
    const Date now = clock_();
    if (now - last_ < interval) {
        return false;
    }
    last_ = now;
    return true;
}

}
