#pragma once

#include <HostKit/FileURL.h>
#include <ScanKit/ScanFailure.h>

#include <QString>
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

/// "12 folders could not be read", where each failure is that of a folder; empty without any.
QString unreadFoldersText(const std::vector<ScanFailure>& failures);

}
