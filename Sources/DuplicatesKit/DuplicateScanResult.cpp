#include <DuplicatesKit/DuplicateScanResult.h>

namespace tolvane {

Bytes DuplicateScanResult::wastedBytes() const {
    Bytes total = 0;
    for (const DuplicateGroup& group : groups) {
        add(total, group.wastedBytes());
    }
    return total;
}

Bytes DuplicateScanResult::reclaimableBytes() const {
    Bytes total = 0;
    for (const DuplicateGroup& group : groups) {
        add(total, group.reclaimableBytes());
    }
    return total;
}

std::int64_t DuplicateScanResult::duplicateFiles() const {
    std::int64_t total = 0;
    for (const DuplicateGroup& group : groups) {
        add(total, static_cast<std::int64_t>(group.files.size()));
    }
    return total;
}

}
