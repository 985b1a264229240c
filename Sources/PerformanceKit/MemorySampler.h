#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/Machine.h>
#include <PerformanceKit/MemoryStats.h>

#include <optional>

namespace tolvane {

/// Reads the machine's memory counters. Callable from any thread; takes well under a millisecond.
namespace MemorySampler {

/// Absent when the system does not tell what is needed.
std::optional<MemoryStats> sample(const HostLayout::Sources& sources);

/// The same from counters; absent when they cannot be.
std::optional<MemoryStats> stats(const MemoryCounters& counters);

}

}
