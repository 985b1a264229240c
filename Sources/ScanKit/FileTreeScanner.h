#pragma once

#include <HostKit/FileManager.h>
#include <ScanKit/ScanFailure.h>
#include <ScanKit/ScanOptions.h>
#include <ScanKit/ScanOutcome.h>
#include <ScanKit/ScanProgress.h>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace tolvane {

/// Measures a directory tree depth first into a tree of bounded size: what exceeds the budgets of
/// the options is folded into the hidden totals of the directory that contains it, so that every
/// total stays exact. Made for one scan at a time; works on the caller's thread and calls back on
/// it.
class FileTreeScanner {
  public:
    static constexpr std::string_view noFollowMarker = ".nofollow";
    /// What no scan enters on any system.
    static const std::vector<std::string>& defaultExcludedPrefixes();

    FileTreeScanner(ScanOptions options, std::shared_ptr<const FileManager> fileManager);
    ~FileTreeScanner();

    /// Walks `root`, which is always taken for a directory and never tested for exclusion.
    /// `isCancelled` is asked before every entry; `progress` is told of the end of every directory
    /// and of every `progressInterval`th item. Either may be empty.
    ScanOutcome scan(const FileURL& root, const ScanProgressCallback& progress = {},
                     const std::function<bool()>& isCancelled = {});

    /// What the latest scan could not read, in the order in which it was met.
    const std::vector<ScanFailure>& lastFailures() const { return failures_; }

  private:
    ScanOptions options_;
    std::shared_ptr<const FileManager> files_;
    std::vector<ScanFailure> failures_;
};

}
