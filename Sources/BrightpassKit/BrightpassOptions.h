#pragma once

#include <HostKit/FileURL.h>

#include <optional>
#include <vector>

namespace tolvane {

/// What a check looks at.
struct BrightpassOptions {
    /// Usually the `junkRoots` of the layout. They are named by their position.
    std::vector<FileURL> junkRoots;
    /// Where duplicates are looked for; absent: nowhere.
    std::optional<FileURL> duplicatesRoot;
    bool includeSystemApps = false;
};

}
