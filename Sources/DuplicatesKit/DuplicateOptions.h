#pragma once

#include <HostKit/Checked.h>

#include <string>
#include <vector>

namespace tolvane {

/// Which files are looked at. No field has a default that a scan could rely on: every caller
/// passes all three.
struct DuplicateOptions {
    /// Smaller files are left out.
    Bytes minimumSize;
    /// Entries whose name begins with "." are left out, hidden folders with all that lies in them.
    bool skipsHiddenFiles;
    /// Absolute paths that are neither entered nor looked at, with all that lies below them.
    std::vector<std::string> excludedPrefixes;

    friend bool operator==(const DuplicateOptions&, const DuplicateOptions&) = default;
};

}
