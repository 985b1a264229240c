#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <HostKit/Processes.h>
#include <PerformanceKit/MaintenanceOutcome.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Carries out maintenance with the system's tools. Every action blocks its caller until the tool
/// has ended or its time is over; `isCancelled` ends the tool as well. Keeps nothing between calls;
/// callable from any thread.
class MaintenanceService {
  public:
    using StopTest = std::function<bool()>;

    MaintenanceService(const HostLayout& layout, std::shared_ptr<const FileManager> files);

    /// Empties the cache of host names; at most 20 s.
    MaintenanceOutcome flushDNS(const StopTest& isCancelled = {}) const;
    /// Rebuilds the table of which application opens what; at most 90 s.
    MaintenanceOutcome rebuildLaunchServices(const StopTest& isCancelled = {}) const;
    /// The names of the snapshots of "/"; at most 20 s.
    std::vector<std::string> localSnapshots(const StopTest& isCancelled = {}) const;
    /// Asks an administrator to let the system delete snapshots of `volume` until it is
    /// `targetBytes` emptier, the more readily the higher `urgency` (1 to 4); systems whose
    /// snapshots have rules of their own apply those. At most 180 s.
    MaintenanceOutcome thinLocalSnapshots(const std::string& volume, Bytes targetBytes,
                                          std::int32_t urgency,
                                          const StopTest& isCancelled = {}) const;
    /// Has the index of file contents made anew; asks an administrator where the index is one of
    /// the volume and not of the user. At most 120 s for each of its tools.
    MaintenanceOutcome reindexSpotlight(const std::string& volume,
                                        const StopTest& isCancelled = {}) const;
    /// Asks an administrator to empty the disk buffers; at most 90 s.
    MaintenanceOutcome freeRAMWithAdministrator(const StopTest& isCancelled = {}) const;
    /// Asks a process to end (SIGTERM). Processes below 2 and `currentPID`, which is this process,
    /// are never signalled. `startTime` is when the process started that is meant: when another has
    /// its number by now, nothing is signalled either; absent, whoever has the number is meant.
    /// Does not block.
    MaintenanceOutcome terminate(std::int32_t pid, std::int32_t currentPID,
                                 std::optional<StartTime> startTime = std::nullopt) const;
    /// Gives free memory of this program back to the system; returns by how many bytes the program
    /// became smaller.
    Bytes releaseApplicationMemory() const;

    /// The shell command that has the index of a volume made anew.
    static std::string spotlightCommand(std::string_view volume);
    /// The shell command that deletes snapshots; a negative target counts as 0.
    static std::string thinSnapshotsCommand(std::string_view volume, Bytes targetBytes,
                                            std::int32_t urgency);
    /// The AppleScript that runs a shell command as an administrator.
    static std::string administratorScript(std::string_view command);

  private:
    MaintenanceTools tools_;
    SnapshotTools snapshots_;
    HostLayout::Sources sources_;
    Processes processes_;
    std::shared_ptr<const FileManager> files_;
};

}
