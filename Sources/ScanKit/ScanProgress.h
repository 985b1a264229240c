#pragma once

#include <HostKit/Checked.h>

#include <cstdint>
#include <functional>
#include <string>

namespace tolvane {

/// How far a scan has come.
struct ScanProgress {
    /// Allocated bytes of all files counted so far.
    Bytes scannedBytes = 0;
    std::int64_t filesScanned = 0;
    std::int64_t directoriesScanned = 0;
    /// The item just handled.
    std::string currentPath;
};

/// Called on the scanning thread, often: it must be cheap.
using ScanProgressCallback = std::function<void(const ScanProgress&)>;

}
