#pragma once

#include <HostKit/Checked.h>
#include <PerformanceKit/SnapshotInventory.h>
#include <PerformanceKit/VolumeStats.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tolvane {

/// Of which volume snapshots are to be deleted, and how many.
struct ThinningTarget {
    std::string volume;
    /// How much emptier it should become; at least 1 GB.
    Bytes bytes = 0;
    /// From 1 to 4, the most urgent.
    std::int32_t urgency = 4;

    /// What is said where there is nothing to delete.
    static constexpr const char* nothingToThin = "No local Time Machine snapshots to thin";

    /// The volume that holds the users' files goes before the system's; absent without snapshots.
    static std::optional<ThinningTarget> of(const SnapshotInventory& inventory,
                                            const std::optional<VolumeStats>& volume);

    friend bool operator==(const ThinningTarget&, const ThinningTarget&) = default;
};

}
