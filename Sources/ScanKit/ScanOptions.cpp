#include <ScanKit/ScanOptions.h>

#include <utility>

namespace tolvane {
namespace {

constexpr Bytes mebibyte = 1'048'576;

}

ScanOptions fullScanOptions(std::vector<std::string> excludedPathPrefixes) {
    return {.skipsHiddenFiles = false,
            .followsSymlinks = false,
            .excludesNoFollowMarker = true,
            .deduplicatesHardlinks = false,
            .maxDepth = 256,
            .progressInterval = 512,
            .maxRetainedFilesPerDirectory = 32,
            .maxRetainedNodes = 150'000,
            .maxRetainedDirectories = 250'000,
            .keyFileSizeThreshold = mebibyte,
            .maxRetainedLargeFiles = 50'000,
            .excludedPathPrefixes = std::move(excludedPathPrefixes)};
}

ScanOptions detailedScanOptions(std::vector<std::string> excludedPathPrefixes) {
    ScanOptions options = fullScanOptions(std::move(excludedPathPrefixes));
    options.maxRetainedFilesPerDirectory = 8192;
    options.maxRetainedNodes = 200'000;
    options.maxRetainedDirectories = 120'000;
    options.maxRetainedLargeFiles = 60'000;
    return options;
}

}
