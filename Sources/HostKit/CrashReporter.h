#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/Result.h>

#include <cstddef>
#include <memory>
#include <string_view>

/// Leaves a report behind when the program dies, on systems that write none themselves.
namespace tolvane::CrashReporter {

/// From now on a fatal signal and an uncaught exception leave "Tolvane-YYYY-MM-DD-HHMMSS.crash"
/// (UTC) in `folder`, with version, cause and back trace; then whatever would have happened anyway
/// happens, a core dump for example. Call it once, on the main thread. Folders that are missing are
/// made when there is something to report. Fails on a folder with a longer path than a handler can
/// open.
Result<void, SystemError> install(const FileURL& folder, std::string_view version);

/// Lets the thread that makes it report even when it has used up its stack; ends with the thread.
class ThreadStack {
  public:
    ThreadStack();
    ~ThreadStack();
    ThreadStack(const ThreadStack&) = delete;
    ThreadStack& operator=(const ThreadStack&) = delete;

  private:
    std::unique_ptr<std::byte[]> bytes_;
};

}
