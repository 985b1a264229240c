#pragma once

#include <HostKit/Checked.h>
#include <PerformanceKit/MemoryStats.h>

#include <optional>
#include <string>

namespace tolvane {

/// What emptying the disk buffers brought.
struct PurgeResult {
    /// By how much more memory programs can have; negative when others took it meanwhile.
    Bytes delta = 0;

    /// An absent sample counts as no memory.
    static PurgeResult between(const std::optional<MemoryStats>& before,
                               const std::optional<MemoryStats>& after);

    /// One sentence for people.
    std::string text() const;
};

}
