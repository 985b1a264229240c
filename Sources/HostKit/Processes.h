#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/Result.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// When a process started, in units of the system: a later process of the same number has another.
using StartTime = std::uint64_t;

/// The other processes of this machine. Callable from any thread.
class Processes {
  public:
    /// Whether this user may look into the processes of all others, or into their own alone.
    enum class Sight { own, all };

    explicit Processes(HostLayout::Sources sources);

    /// Where the program lies that the process runs, as bytes; absent where the system does not
    /// tell, as of other users' processes.
    std::optional<std::string> executablePath(std::int32_t pid) const;
    /// That of every process of which the system tells, in no order.
    std::vector<std::string> executablePaths() const;
    /// Absent when there is no such process.
    std::optional<StartTime> startTime(std::int32_t pid) const;
    static Sight sight();
    /// Sends a signal to one process, never to a group: numbers below 1 are refused (EINVAL).
    static Result<void, SystemError> signal(std::int32_t pid, int number);

  private:
    HostLayout::Sources sources_;
};

}
