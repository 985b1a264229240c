#pragma once

#include <DuplicatesKit/Candidates.h>
#include <DuplicatesKit/DuplicateOptions.h>
#include <HostKit/FileManager.h>
#include <ScanKit/ScanFailure.h>

#include <functional>
#include <vector>

namespace tolvane {

struct CollectedCandidates {
    Candidates files;
    /// One for each folder that could not be listed.
    std::vector<ScanFailure> errors;
};

/// Every regular file below `root` that the options let through. A cancelled walk gives what it had
/// found by then.
CollectedCandidates collectCandidates(const FileManager& files, const FileURL& root,
                                      const DuplicateOptions& options,
                                      const std::function<bool()>& isCancelled);

}
