#include <HostKit/DeepEnumerator.h>
#include <ScanKit/FileSizeCalculator.h>

namespace tolvane::FileSizeCalculator {
namespace {

constexpr std::int64_t itemsPerStopTest = 256;

Bytes allocatedSizeOfItem(const Result<ResourceValues, SystemError>& values) {
    if (!values || !values->isRegularFile.value_or(true)) {
        return 0;
    }
    return values->totalFileAllocatedSize.value_or(values->fileSize.value_or(0));
}

Bytes logicalSizeOfItem(const Result<ResourceValues, SystemError>& values) {
    return values ? values->fileSize.value_or(0) : 0;
}

}

Bytes allocatedSize(const FileManager& files, const FileURL& url,
                    const std::function<bool()>& isCancelled) {
    const std::optional<FileType> type = files.targetType(url);
    if (type != FileType::directory) {
        return type ? allocatedSizeOfItem(files.values(url)) : 0;
    }
    Bytes total = 0;
    std::int64_t items = 0;
    DeepEnumerator below(files, url, {});
    while (below.next()) {
        ++items;
        if (items % itemsPerStopTest == 0 && isCancelled && isCancelled()) {
            break;
        }
        add(total, allocatedSizeOfItem(below.values()));
    }
    return total;
}

Bytes logicalSize(const FileManager& files, const FileURL& url, const std::function<bool()>&) {
    const std::optional<FileType> type = files.targetType(url);
    if (type != FileType::directory) {
        return type ? logicalSizeOfItem(files.values(url)) : 0;
    }
    Bytes total = 0;
    DeepEnumerator below(files, url, {});
    while (below.next()) {
        add(total, logicalSizeOfItem(below.values()));
    }
    return total;
}

}
