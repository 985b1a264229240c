#include <DuplicatesKit/CandidateWalk.h>
#include <DuplicatesKit/Comparison.h>
#include <DuplicatesKit/DuplicateScanner.h>
#include <DuplicatesKit/Runs.h>

#include <algorithm>
#include <numeric>

namespace tolvane {
namespace {

using Positions = std::vector<Candidates::Position>;
using Position = Candidates::Position;

/// The positions of all files that share their size with another one, by size.
Positions sharingSize(const Candidates& files) {
    Positions order(files.count());
    std::iota(order.begin(), order.end(), Position{0});
    std::ranges::sort(order, [&](Position a, Position b) { return files.isBefore(a, b); });
    // A file that has one name and was met twice is mounted a second time.
    const auto isMetAgain = [&](Position a, Position b) {
        return files.isSameFile(a, b) && files.hasOneName(b);
    };
    order.erase(std::unique(order.begin(), order.end(), isMetAgain), order.end());
    removeSingles(order, [&](Position a, Position b) { return files.size(a) == files.size(b); });
    return order;
}

}

DuplicateScanner::DuplicateScanner(DuplicateOptions options,
                                   std::shared_ptr<const FileManager> fileManager)
    : options_(std::move(options))
    , files_(std::move(fileManager)) {}

DuplicateScanResult DuplicateScanner::scan(const FileURL& root, const Progress& progress,
                                           const std::function<bool()>& isCancelled) {
    CollectedCandidates collected = collectCandidates(*files_, root, options_, isCancelled);
    const Candidates& candidates = collected.files;
    Comparison comparison(*files_, candidates, isCancelled);
    // To sort millions of files takes longer than a person who cancels should wait.
    const bool isStopped = isCancelled && isCancelled();
    const Positions order = isStopped ? Positions() : sharingSize(candidates);
    const EqualFiles equal = comparison.confirmed(comparison.fingerprinted(order, progress));
    uncertain_ = comparison.uncertain();
    std::ranges::sort(uncertain_);
    return {root, equal.made(candidates), static_cast<std::int64_t>(candidates.count()),
            comparison.fingerprintedFiles(), std::move(collected.errors)};
}

}
