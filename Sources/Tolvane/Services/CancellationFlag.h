#pragma once

#include <mutex>

namespace tolvane {

/// The signal by which whoever started some work asks it to stop. Callable from any thread.
class CancellationFlag {
  public:
    CancellationFlag() = default;
    CancellationFlag(const CancellationFlag&) = delete;
    CancellationFlag& operator=(const CancellationFlag&) = delete;

    /// Cannot be taken back.
    void cancel();
    bool isCancelled() const;

  private:
    mutable std::mutex mutex_;
    bool flag_ = false;
};

}
