#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace tolvane {

using Call = std::function<void()>;

/// Threads for long work, and the way back to the main thread. Everything crosses under one mutex.
class Workers {
  public:
    /// Enough that a tool which hangs does not starve a scan.
    static constexpr int usualThreads = 8;

    /// `wakeMainThread` is called on any thread after every `post` and must lead to a `drain` on
    /// the main thread; it may be called until the destructor returns.
    Workers(int threads, std::function<void()> wakeMainThread);
    /// Waits for what is running; what has not begun never will, and what was posted and not
    /// drained is dropped.
    ~Workers();
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    /// Calls `call` on a worker thread. An exception it throws ends there.
    void run(Call call);
    /// Has `call` called by a later `drain`, in the order of the posts. Callable from any thread.
    void post(Call call);
    /// Calls what has been posted so far; on the main thread only. A call may drain again.
    void drain();

  private:
    struct Pool;

    std::size_t postedCount();
    Call nextPosted();

    const std::function<void()> wakeMainThread_;
    std::mutex mutex_;
    std::deque<Call> posted_;
    std::unique_ptr<Pool> pool_;
};

}
