#pragma once

#include <condition_variable>
#include <mutex>

namespace tolvane {

/// Holds up a worker at one place until a test has looked at what that looks like.
class Gate {
  public:
    /// What a worker does at the gate.
    void pass() {
        std::unique_lock lock(mutex_);
        isReached_ = true;
        changed_.notify_all();
        changed_.wait(lock, [this] { return isOpen_; });
    }

    void open() {
        const std::lock_guard lock(mutex_);
        isOpen_ = true;
        changed_.notify_all();
    }

    void close() {
        const std::lock_guard lock(mutex_);
        isOpen_ = false;
    }

    bool isReached() {
        const std::lock_guard lock(mutex_);
        return isReached_;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isReached_ = false;
    bool isOpen_ = false;
};

}
