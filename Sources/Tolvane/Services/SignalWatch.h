#pragma once

#include <Services/CancellationFlag.h>

#include <csignal>
#include <functional>
#include <thread>

namespace tolvane {

/// Hears of SIGINT and SIGTERM, which end the program no longer. A thread waits for them, so no
/// code runs in a handler. Make it before any other thread.
class SignalWatch {
  public:
    /// `onSignal` is called on that thread for each of them.
    explicit SignalWatch(std::function<void()> onSignal);
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    void watch();

    const std::function<void()> onSignal_;
    CancellationFlag isEnding_;
    sigset_t signals_;
    std::thread thread_;
};

}
