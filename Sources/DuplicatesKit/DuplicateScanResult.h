#pragma once

#include <DuplicatesKit/DuplicateGroup.h>
#include <ScanKit/ScanFailure.h>

#include <cstdint>
#include <vector>

namespace tolvane {

/// What a scan found; after a cancelled one, what it had found by then.
struct DuplicateScanResult {
    FileURL root;
    /// Descending by wasted bytes; of equal waste, ascending by the path of the first file.
    std::vector<DuplicateGroup> groups;
    /// The files that were looked at: regular, large enough, not left out.
    std::int64_t scannedFiles = 0;
    /// Those of them that share their size with another one, as far as the scan came.
    std::int64_t candidateFiles = 0;
    /// One for each folder that could not be listed.
    std::vector<ScanFailure> errors;

    Bytes wastedBytes() const;
    /// The groups' `reclaimableBytes()` together.
    Bytes reclaimableBytes() const;
    /// The files of all groups, those that would be kept included.
    std::int64_t duplicateFiles() const;
};

}
