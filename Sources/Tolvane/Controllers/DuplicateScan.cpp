#include <DuplicatesKit/DuplicateScanner.h>
#include <ScanKit/ExcludedPrefixes.h>
#include <Services/NotCounted.h>
#include <Services/Throttle.h>

#include <Controllers/DuplicateScan.h>

#include <utility>

namespace tolvane::DuplicateScan {

Result scan(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
            const FileURL& root, Bytes minimumSize, const Report<std::int64_t>& report,
            const std::function<bool()>& isCancelled) {
    const Date start = steadyTime();
    Result result;
    result.minimumSize = minimumSize;
    std::vector<std::string> excluded = excludedPrefixes(root, layout, *files);
    result.notEntered = notEntered(root, excluded, *files);
    DuplicateScanner scanner({.minimumSize = minimumSize,
                              .skipsHiddenFiles = true,
                              .excludedPrefixes = std::move(excluded)},
                             files);
    DuplicateScanResult found = scanner.scan(root, report, isCancelled);
    result.index = std::make_shared<DuplicateIndex>(std::move(found), scanner.lastUncertain());
    result.isCancelled = isCancelled();
    result.seconds = steadyTime() - start;
    return result;
}

}
