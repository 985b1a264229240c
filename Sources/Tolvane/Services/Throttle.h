#pragma once

#include <HostKit/Date.h>

#include <limits>
#include <mutex>

namespace tolvane {

/// Seconds of a clock that never runs backwards; only differences mean something.
Date steadyTime();

/// Lets events through at a limited rate; those refused are gone. Callable from any thread.
class Throttle {
  public:
    /// The default clock does not stop when somebody sets the time of day back.
    explicit Throttle(Clock clock = steadyTime);
    Throttle(const Throttle&) = delete;
    Throttle& operator=(const Throttle&) = delete;

    /// Whether `interval` seconds have passed since the last allowed event; the first one always is
    /// allowed.
    bool allow(Seconds interval);

  private:
    const Clock clock_;
    std::mutex mutex_;
    Date last_ = -std::numeric_limits<Date>::infinity();
};

}
