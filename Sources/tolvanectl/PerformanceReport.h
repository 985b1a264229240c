#pragma once

#include "Console.h"

#include <PerformanceKit/HeavyProcess.h>
#include <PerformanceKit/MemoryStats.h>
#include <PerformanceKit/SnapshotInventory.h>
#include <PerformanceKit/StartupAgent.h>
#include <PerformanceKit/VolumeStats.h>

#include <optional>
#include <vector>

namespace tolvane {

/// What there is to tell of the machine at one moment.
struct PerformanceReport {
    std::optional<MemoryStats> memory;
    std::optional<VolumeStats> volume;
    std::vector<HeavyProcess> processes;
    std::vector<StartupAgent> agents;
    SnapshotInventory snapshots;
};

void printAsJson(Output& out, const PerformanceReport& report);
void printAsText(Console& console, const PerformanceReport& report);

}
