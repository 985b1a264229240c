#pragma once

#include <HostKit/Checked.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

/// What a scan enters, counts and keeps. No field has a default that a scan could rely on: use one
/// of the two sets below and change what must differ.
struct ScanOptions {
    /// The listing leaves hidden entries out.
    bool skipsHiddenFiles;
    /// Links are resolved and entered instead of being recorded as `symlink` leaves.
    bool followsSymlinks;
    /// Entries named exactly `FileTreeScanner::noFollowMarker` are left out.
    bool excludesNoFollowMarker;
    /// A file with several names is counted once a scan.
    bool deduplicatesHardlinks;
    /// A directory at depth d (the root's is 0) is listed only if d is less.
    std::int64_t maxDepth;
    /// Progress is reported every so many items; values below 1 act as 1.
    std::int64_t progressInterval;
    std::int64_t maxRetainedFilesPerDirectory;
    /// Kept nodes of one scan that are no directories.
    std::int64_t maxRetainedNodes;
    /// Kept directory nodes of one scan, the root included.
    std::int64_t maxRetainedDirectories;
    /// Allocated size from which a file is a key file.
    Bytes keyFileSizeThreshold;
    /// Allowance for key files once `maxRetainedNodes` is used up.
    std::int64_t maxRetainedLargeFiles;
    /// Absolute paths that are neither entered nor recorded, with all that lies below them.
    std::vector<std::string> excludedPathPrefixes;

    friend bool operator==(const ScanOptions&, const ScanOptions&) = default;
};

/// For a whole volume or folder: a bounded overview.
ScanOptions fullScanOptions(std::vector<std::string> excludedPathPrefixes);
/// For one folder: many more files a directory, fewer directories.
ScanOptions detailedScanOptions(std::vector<std::string> excludedPathPrefixes);

}
