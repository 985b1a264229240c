#pragma once

#include <PerformanceKit/LocalSnapshot.h>

#include <cstddef>
#include <vector>

namespace tolvane {

/// The snapshots of this machine, the newest of each volume first.
struct SnapshotInventory {
    /// Those of "/".
    std::vector<LocalSnapshot> system;
    /// Those of the volume that holds the users' files.
    std::vector<LocalSnapshot> data;

    /// `system`, then `data`.
    std::vector<LocalSnapshot> all() const;
    std::size_t count() const { return system.size() + data.size(); }

    friend bool operator==(const SnapshotInventory&, const SnapshotInventory&) = default;
};

}
