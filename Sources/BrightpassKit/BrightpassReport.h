#pragma once

#include <DuplicatesKit/DuplicateScanResult.h>
#include <HostKit/Date.h>

#include <BrightpassKit/AppLeftoverSummary.h>
#include <BrightpassKit/JunkCategory.h>

#include <optional>
#include <vector>

namespace tolvane {

/// What one check found; after a cancelled one, what it had found by then. The three parts may
/// overlap: a leftover can lie among the junk, a duplicate in either.
struct BrightpassReport {
    /// One for each junk folder that was measured, in the order of the folders.
    std::vector<JunkCategory> junk;
    /// The applications that leave anything, the one that leaves most first.
    std::vector<AppLeftoverSummary> apps;
    /// Absent when no folder was looked through.
    std::optional<DuplicateScanResult> duplicates;
    Date generatedAt = 0;
    Seconds duration = 0;

    Bytes junkBytes() const;
    /// Protected leftovers included.
    Bytes leftoverBytes() const;
    Bytes duplicateBytes() const;
    /// The three together.
    Bytes reclaimableBytes() const;
};

}
