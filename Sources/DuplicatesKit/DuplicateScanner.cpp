#include <DuplicatesKit/CandidateWalk.h>
#include <DuplicatesKit/Comparison.h>
#include <DuplicatesKit/DuplicateScanner.h>

#include <algorithm>
#include <utility>

namespace tolvane {

DuplicateScanner::DuplicateScanner(DuplicateOptions options,
                                   std::shared_ptr<const FileManager> fileManager)
    : options_(std::move(options))
    , files_(std::move(fileManager)) {}

DuplicateScanResult DuplicateScanner::scan(const FileURL& root, const Progress& progress,
                                           const std::function<bool()>& isCancelled) {
    CollectedCandidates collected = collectCandidates(*files_, root, options_, isCancelled);
    Candidates& candidates = collected.files;
    const auto scannedFiles = static_cast<std::int64_t>(candidates.count());
    candidates.keepSharingSize(isCancelled);
    Comparison comparison(*files_, candidates, isCancelled);
    EqualFiles equal = comparison.confirmed(comparison.fingerprinted(progress));
    uncertain_ = comparison.uncertain();
    std::ranges::sort(uncertain_);
    return {root, std::move(equal).made(std::move(candidates)), scannedFiles,
            comparison.fingerprintedFiles(), std::move(collected.errors)};
}

}
