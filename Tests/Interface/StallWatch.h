#pragma once

#include <QTimer>
#include <algorithm>
#include <ctime>

namespace tolvane {

using Milliseconds = double;

inline Milliseconds clockOf(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

/// What the calling thread computed, and what passed meanwhile, which other programs lengthen.
struct Span {
    Milliseconds busy = 0;
    Milliseconds wall = 0;

    void extendTo(const Span& other) {
        busy = std::max(busy, other.busy);
        wall = std::max(wall, other.wall);
    }
};

class Stopwatch {
  public:
    Span elapsed() const {
        return {clockOf(CLOCK_THREAD_CPUTIME_ID) - busy_, clockOf(CLOCK_MONOTONIC) - wall_};
    }

  private:
    Milliseconds busy_ = clockOf(CLOCK_THREAD_CPUTIME_ID);
    Milliseconds wall_ = clockOf(CLOCK_MONOTONIC);
};

/// Notes the longest time that the event loop did not come round.
class StallWatch {
  public:
    StallWatch() {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            longest_.extendTo(since_.elapsed());
            since_ = Stopwatch();
        });
        timer_.start(0);
    }
    Span longest() const { return longest_; }

  private:
    QTimer timer_;
    Stopwatch since_;
    Span longest_;
};

}
