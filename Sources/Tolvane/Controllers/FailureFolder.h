#pragma once

#include <HostKit/FileURL.h>
#include <ScanKit/ScanFailure.h>

#include <cstdint>
#include <vector>

namespace tolvane {

/// A folder in which something could not be read, and how many things.
struct FailureFolder {
    FileURL folder;
    std::int64_t count = 0;
};

/// The folders that the items of `failures` lie in, the one with the most first, equal ones in the
/// order in which they were met.
std::vector<FailureFolder> failuresByFolder(const std::vector<ScanFailure>& failures);

}
