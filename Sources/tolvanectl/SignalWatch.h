#pragma once

#include <Services/CancellationFlag.h>

#include <csignal>
#include <thread>

namespace tolvane {

/// Turns the first SIGINT or SIGTERM into a cancellation and ends the program at the second. A
/// thread waits for them, so no code runs in a handler. Make it before any other thread.
class SignalWatch {
  public:
    explicit SignalWatch(CancellationFlag& cancellation);
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    void watch();

    CancellationFlag& cancellation_;
    CancellationFlag isEnding_;
    sigset_t signals_;
    std::thread thread_;
};

}
