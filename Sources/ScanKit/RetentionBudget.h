#pragma once

#include <ScanKit/ScanOptions.h>

namespace tolvane {

/// The counters by which one scan decides what it keeps as nodes. They never go back: what a folded
/// folder had kept while it was walked stays spent.
class RetentionBudget {
  public:
    explicit RetentionBudget(const ScanOptions& options);

    /// Files at one time in one directory.
    std::int64_t filesPerDirectory() const { return filesPerDirectory_; }
    /// Whether a file of this size may be kept: under the general allowance, or as a key file under
    /// that for large ones.
    bool mayKeepFile(Bytes size) const;
    /// Spends what one kept file costs; a key file uses the large allowance too, whichever let it
    /// in.
    void keepFile(Bytes size);
    bool mayKeepDirectory() const { return retainedDirectories_ < maxDirectories_; }
    void keepDirectory() { ++retainedDirectories_; }

  private:
    std::int64_t filesPerDirectory_;
    std::int64_t maxFiles_;
    std::int64_t maxDirectories_;
    std::int64_t maxLargeFiles_;
    Bytes keyFileSize_;
    std::int64_t retainedFiles_ = 0;
    std::int64_t retainedLargeFiles_ = 0;
    /// The root is kept by definition.
    std::int64_t retainedDirectories_ = 1;
};

inline RetentionBudget::RetentionBudget(const ScanOptions& options)
    : filesPerDirectory_(options.maxRetainedFilesPerDirectory)
    , maxFiles_(options.maxRetainedNodes)
    , maxDirectories_(options.maxRetainedDirectories)
    , maxLargeFiles_(options.maxRetainedLargeFiles)
    , keyFileSize_(options.keyFileSizeThreshold) {}

inline bool RetentionBudget::mayKeepFile(Bytes size) const {
    return retainedFiles_ < maxFiles_ ||
           (size >= keyFileSize_ && retainedLargeFiles_ < maxLargeFiles_);
}

inline void RetentionBudget::keepFile(Bytes size) {
    ++retainedFiles_;
    if (size >= keyFileSize_) {
        ++retainedLargeFiles_;
    }
}

}
