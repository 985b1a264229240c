#pragma once

#include <HostKit/Tool.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// What the tools that list snapshots print.
enum class SnapshotFormat : std::uint8_t {
    /// tmutil a name a line, and diskutil which of them may go.
    timeMachine,
    /// snapper one table with a row for each.
    snapper
};

/// The tools for the snapshots of one volume.
struct SnapshotVolume {
    /// "/" or the folder that the data volume is mounted on.
    std::string volume = {};
    /// Lists them.
    Tool list = {};
    /// Tells which may be deleted; absent where `list` tells that too.
    std::optional<Tool> listPurgeable = std::nullopt;
    /// Deletes some of them, as an administrator; absent where the command is written for a shell.
    std::optional<Tool> thin = std::nullopt;
};

/// How this system tells of the snapshots it keeps of its volumes.
struct SnapshotTools {
    SnapshotFormat format = SnapshotFormat::timeMachine;
    SnapshotVolume system = {};
    SnapshotVolume data = {};

    static SnapshotTools darwin();
    static SnapshotTools freedesktop();
};

}
