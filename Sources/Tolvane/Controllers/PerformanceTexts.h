#pragma once

#include <PerformanceKit/HeavyProcess.h>
#include <PerformanceKit/LocalSnapshot.h>
#include <PerformanceKit/MemoryStats.h>
#include <PerformanceKit/SnapshotInventory.h>
#include <PerformanceKit/StartupAgent.h>
#include <PerformanceKit/VolumeStats.h>

#include <Controllers/MemoryHistory.h>

#include <QString>
#include <string>
#include <vector>

/// The sentences of the performance screen.
namespace tolvane::PerformanceTexts {

/// What is said of an action that has not ended.
inline constexpr const char* running = "Running…";

/// "9.1 GB of 16 GB used (57 %)"
QString used(const MemoryStats& memory);
/// "412 GB of 1 TB available (59 % used)"
QString available(const VolumeStats& volume);
/// How to read that: what the system would delete for something important is named where there is
/// any.
QString availableNote(const VolumeStats& volume);
/// "None", "1.2 GB of 4 GB"
QString swap(const MemoryStats& memory);
QString history(const MemoryHistory& history);
/// "firefox (PID 42) is using 1.2 GB. Unsaved work may be lost."
QString quitQuestion(const HeavyProcess& process);
/// "42 items, 17 of them started at log-in or boot"
QString agents(const std::vector<StartupAgent>& agents);
/// "At log-in", "At boot", "On demand"
QString start(const StartupAgent& agent);
/// "This user", "Every user", "System"
QString scope(const StartupAgent& agent);
QString snapshots(const SnapshotInventory& inventory);
/// "2024-03-01 10:15"
QString date(const LocalSnapshot& snapshot);
/// What came of handing `released` bytes back, with which programs can have `gained` more.
std::string released(Bytes released, Bytes gained);

}
