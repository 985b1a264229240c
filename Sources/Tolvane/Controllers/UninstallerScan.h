#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <ScanKit/ScanFailure.h>
#include <Services/Job.h>
#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/LeftoverItem.h>
#include <UninstallerKit/LeftoverOrigin.h>

#include <Controllers/AppRows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tolvane {

/// Everything that is installed, to be shared between threads.
using InstalledApps = std::shared_ptr<const std::vector<InstalledApp>>;

/// What the uninstaller's screen asks the disk for, on workers.
namespace UninstallerScan {

struct Inventory {
    /// What can be removed, by name.
    std::vector<AppRow> rows;
    /// The system's own applications too.
    InstalledApps installed;
    /// Folders that could not be looked through for `rows`.
    std::vector<ScanFailure> failures;
};

struct Detail {
    Bytes appSize = 0;
    /// The largest first, protected ones included.
    std::vector<LeftoverItem> leftovers;
    /// One for each of them.
    std::vector<LeftoverOrigin> origins;
};

/// The keys of icons by the identifiers of the applications that have one.
using Icons = std::map<std::string, QString>;

/// Reports how many bundles were read.
Inventory inventory(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
                    const Report<std::int64_t>& report, const std::function<bool()>& isCancelled);

/// What is cut short by `isCancelled` is of no use.
Detail detail(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
              const InstalledApp& app, const InstalledApps& installed,
              const std::function<bool()>& isCancelled);

Icons icons(const HostLayout& layout, const FileManager& files, const std::vector<AppRow>& apps,
            const std::function<bool()>& isCancelled);

}
}
