#pragma once

#include <ArborviewKit/ScannedTree.h>
#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <ScanKit/ScanFailure.h>
#include <ScanKit/ScanProgress.h>
#include <Services/Job.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The parts of a disk scan that run on a worker: from a place to everything that the main thread
/// needs to show it, so that it has nothing left to compute.
namespace tolvane::DiskScan {

struct Result {
    std::shared_ptr<const ScannedTree> tree;
    NodeTotals totals;
    std::vector<ScanFailure> failures;
    /// What the scan left out, for loads of its folders to leave out as well.
    std::vector<std::string> excludedPrefixes;
    /// Of those, what exists.
    std::vector<FileURL> notEntered;
    Seconds seconds = 0;
    bool isCancelled = false;
};

/// Measures `root` as a whole.
Result scan(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
            const FileURL& root, const Report<ScanProgress>& report,
            const std::function<bool()>& isCancelled);

struct FolderResult {
    /// The tree with the folder in its place.
    std::shared_ptr<const ScannedTree> tree;
    FileURL folder;
    /// Of the folder.
    NodeTotals totals;
    NodeTotals treeTotals;
    std::vector<ScanFailure> failures;
};

/// Measures `folder`, a node of `tree`, in detail.
FolderResult load(const std::shared_ptr<const FileManager>& files,
                  const std::shared_ptr<const ScannedTree>& tree, const FileNode& folder,
                  const std::vector<std::string>& excludedPrefixes,
                  const Report<ScanProgress>& report, const std::function<bool()>& isCancelled);

}
