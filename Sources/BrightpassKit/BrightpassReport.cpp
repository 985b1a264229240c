#include <BrightpassKit/BrightpassReport.h>

namespace tolvane {

Bytes BrightpassReport::junkBytes() const {
    Bytes total = 0;
    for (const JunkCategory& category : junk) {
        add(total, category.bytes);
    }
    return total;
}

Bytes BrightpassReport::leftoverBytes() const {
    Bytes total = 0;
    for (const AppLeftoverSummary& summary : apps) {
        add(total, summary.bytes());
    }
    return total;
}

Bytes BrightpassReport::duplicateBytes() const {
    return duplicates ? duplicates->wastedBytes() : 0;
}

Bytes BrightpassReport::reclaimableBytes() const {
    return sum(sum(junkBytes(), leftoverBytes()), duplicateBytes());
}

}
