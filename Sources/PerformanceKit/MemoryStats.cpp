#include <PerformanceKit/MemoryStats.h>

#include <algorithm>

namespace tolvane {

Bytes MemoryStats::available() const {
    return sum(free, sum(inactive, speculative));
}

Bytes MemoryStats::used() const {
    return std::max<Bytes>(difference(total, available()), 0);
}

double MemoryStats::usedFraction() const {
    return total < 1 ? 0 : static_cast<double>(used()) / static_cast<double>(total);
}

std::string MemoryStats::pressureLabel() const {
    switch (pressureLevel) {
    case 4:
        return "Critical";
    case 2:
        return "Warning";
    default:
        return "Normal";
    }
}

}
