#include <PerformanceKit/VolumeStats.h>

#include <algorithm>

namespace tolvane {

double VolumeStats::usedFraction() const {
    const Bytes used = std::max<Bytes>(difference(total, available), 0);
    return total < 1 ? 0 : static_cast<double>(used) / static_cast<double>(total);
}

}
