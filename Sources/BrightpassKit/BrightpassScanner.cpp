#include <ScanKit/ExcludedPrefixes.h>
#include <ScanKit/FileSizeCalculator.h>

#include <BrightpassKit/BrightpassScanner.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tolvane {
namespace {

constexpr std::array<const char*, 5> junkNames{"Caches", "Logs", "Derived Data", "Crash reports",
                                               "Trash"};
constexpr bool includesSystemLevel = true;

/// By the position alone, also in a list of a caller's own.
std::string junkName(const FileURL& root, std::size_t position) {
    return position < junkNames.size() ? std::string(junkNames.at(position))
                                       : std::string(root.lastPathComponent());
}

}

BrightpassScanner::BrightpassScanner(AppInventory inventory, LeftoverFinder leftovers,
                                     DuplicateScanner duplicates,
                                     std::shared_ptr<const FileManager> fileManager)
    : inventory_(std::move(inventory))
    , leftovers_(std::move(leftovers))
    , duplicates_(std::move(duplicates))
    , files_(std::move(fileManager)) {}

BrightpassScanner BrightpassScanner::of(const HostLayout& layout,
                                        const std::shared_ptr<const FileManager>& fileManager,
                                        const std::optional<FileURL>& duplicatesRoot) {
    const HostLayout::Locations& places = layout.locations;
    DuplicateOptions options{
        .minimumSize = minimumDuplicateSize, .skipsHiddenFiles = true, .excludedPrefixes = {}};
    if (duplicatesRoot) {
        options.excludedPrefixes = excludedPrefixes(*duplicatesRoot, layout, *fileManager);
    }
    return {AppInventory(fileManager, places.home, std::nullopt, layout.applications),
            LeftoverFinder(places.home, places.systemLibrary, fileManager,
                           ProtectionPolicy(layout.protection), layout.leftovers),
            DuplicateScanner(std::move(options), fileManager), fileManager};
}

BrightpassReport BrightpassScanner::scan(const BrightpassOptions& options, const Progress& progress,
                                         const std::function<bool()>& isCancelled) {
    const Date start = now();
    const auto tell = [&](const char* stage) {
        if (progress) {
            progress(stage);
        }
    };
    BrightpassReport report;
    tell(stages[0]);
    report.junk = measuredJunk(options.junkRoots, isCancelled);
    tell(stages[1]);
    report.apps = foundLeftovers(options.includeSystemApps, isCancelled);
    tell(stages[2]);
    if (options.duplicatesRoot && !(isCancelled && isCancelled())) {
        report.duplicates = duplicates_.scan(*options.duplicatesRoot, {}, isCancelled);
    }
    tell(stages[3]);
    report.generatedAt = now();
    report.duration = std::max(report.generatedAt - start, 0.0);
    return report;
}

std::vector<JunkCategory>
BrightpassScanner::measuredJunk(const std::vector<FileURL>& roots,
                                const std::function<bool()>& isCancelled) const {
    std::vector<JunkCategory> junk;
    for (std::size_t position = 0; position < roots.size(); ++position) {
        if (isCancelled && isCancelled()) {
            break;
        }
        const FileURL& root = roots[position];
        junk.push_back({junkName(root, position), root,
                        FileSizeCalculator::allocatedSize(*files_, root, isCancelled)});
    }
    return junk;
}

std::vector<AppLeftoverSummary>
BrightpassScanner::foundLeftovers(bool includeSystemApps,
                                  const std::function<bool()>& isCancelled) const {
    std::vector<AppLeftoverSummary> summaries;
    if (isCancelled && isCancelled()) {
        return summaries;
    }
    for (const InstalledApp& app : inventory_.scan(includeSystemApps, isCancelled)) {
        if (isCancelled && isCancelled()) {
            break;
        }
        std::vector<LeftoverItem> items =
            leftovers_.leftovers(app, includesSystemLevel, isCancelled);
        if (!items.empty()) {
            summaries.push_back({app, std::move(items)});
        }
    }
    std::ranges::stable_sort(summaries, std::ranges::greater(), &AppLeftoverSummary::bytes);
    return summaries;
}

}
