#pragma once

#include <DuplicatesKit/DuplicateOptions.h>
#include <DuplicatesKit/DuplicateScanResult.h>
#include <HostKit/FileManager.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tolvane {

/// Finds the files below a folder whose contents are equal byte for byte. Only files that share
/// their size are opened, one is read at a time, all of it only where head and tail agree too.
/// Hidden items and what lies in packages (folders named ".app" or ".AppDir") are left out, links
/// are not followed, a folder that can be reached by two ways is entered once. Made for one scan;
/// works on the caller's thread and calls back on it.
class DuplicateScanner {
  public:
    /// Told how many files have been looked into so far, before the next one is opened.
    using Progress = std::function<void(std::int64_t fingerprintedFiles)>;

    DuplicateScanner(DuplicateOptions options, std::shared_ptr<const FileManager> fileManager);

    /// Never fails as a whole: what cannot be read is left out. `root` may be a link to a folder.
    /// `isCancelled` is asked between files and between the pieces of large ones; when it says so
    /// before contents are compared there are no groups, later those that were found by then. Both
    /// may be empty.
    DuplicateScanResult scan(const FileURL& root, const Progress& progress = {},
                             const std::function<bool()>& isCancelled = {});

    /// The paths of files that the latest scan may be wrong about, ascending: reading one failed in
    /// the middle, or it was changed between the walk and the end of reading it.
    const std::vector<std::string>& lastUncertain() const { return uncertain_; }

  private:
    DuplicateOptions options_;
    std::shared_ptr<const FileManager> files_;
    std::vector<std::string> uncertain_;
};

}
