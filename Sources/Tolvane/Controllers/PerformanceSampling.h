#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/Processes.h>
#include <PerformanceKit/HeavyProcess.h>
#include <PerformanceKit/MemoryStats.h>
#include <PerformanceKit/VolumeStats.h>

#include <functional>
#include <optional>
#include <vector>

namespace tolvane {

/// A heavy process, and when it started, so that a later one of its number is not taken for it.
struct ListedProcess {
    HeavyProcess process;
    /// Absent when it had ended before that could be told.
    std::optional<StartTime> startTime = std::nullopt;
    /// Of the machine's memory, 0 to 1; 0 when that is not known.
    double share = 0;

    friend bool operator==(const ListedProcess&, const ListedProcess&) = default;
};

/// How a refresh of the performance screen asks for its figures.
namespace PerformanceSampling {

inline constexpr std::size_t listedProcesses = 8;

struct Figures {
    std::optional<MemoryStats> memory;
    std::optional<VolumeStats> volume;
};

/// Takes well under a millisecond, so that it needs no worker: the volume is "/", without which
/// this program would not run either.
Figures figures(const HostLayout::Sources& sources);

/// The heaviest first; blocks until "ps" has ended, or `isCancelled`.
std::vector<ListedProcess> processes(const HostLayout& layout,
                                     const std::function<bool()>& isCancelled);

}
}
