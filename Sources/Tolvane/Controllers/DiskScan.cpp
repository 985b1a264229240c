#include <ScanKit/ExcludedPrefixes.h>
#include <ScanKit/FileTreeScanner.h>
#include <Services/NotCounted.h>
#include <Services/Throttle.h>

#include <Controllers/DiskScan.h>

#include <utility>

namespace tolvane::DiskScan {

Result scan(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
            const FileURL& root, const Report<ScanProgress>& report,
            const std::function<bool()>& isCancelled) {
    const Date start = steadyTime();
    Result result;
    result.excludedPrefixes = excludedPrefixes(root, layout, *files);
    FileTreeScanner scanner(fullScanOptions(result.excludedPrefixes), files);
    ScanOutcome outcome = scanner.scan(root, report, isCancelled);
    result.seconds = steadyTime() - start;
    result.isCancelled = outcome.outcome == ScanOutcome::Case::cancelled;
    result.totals = totals(outcome.root);
    result.tree = ScannedTree::of(std::move(outcome.root));
    result.failures = scanner.lastFailures();
    result.notEntered = notEntered(root, result.excludedPrefixes, *files);
    return result;
}

FolderResult load(const std::shared_ptr<const FileManager>& files,
                  const std::shared_ptr<const ScannedTree>& tree, const FileNode& folder,
                  const std::vector<std::string>& excludedPrefixes,
                  const Report<ScanProgress>& report, const std::function<bool()>& isCancelled) {
    FolderResult result;
    result.folder = folder.url();
    FileTreeScanner scanner(detailedScanOptions(excludedPrefixes), files);
    ScanOutcome outcome = scanner.scan(result.folder, report, isCancelled);
    result.totals = totals(outcome.root);
    result.tree = ScannedTree::of(tree->rootReplacing(folder.id(), std::move(outcome.root)));
    result.treeTotals = totals(result.tree->root());
    result.failures = scanner.lastFailures();
    return result;
}

}
