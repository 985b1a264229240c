#include <Controllers/ScanEstimate.h>

#include <algorithm>

namespace tolvane::ScanEstimate {
namespace {

double ratio(std::int64_t part, std::int64_t whole) {
    constexpr double most = 0.99;
    return std::min(most, static_cast<double>(part) / static_cast<double>(whole));
}

}

std::optional<double> fraction(const std::optional<ScanStatistics::Expected>& expected,
                               const std::optional<ScanProgress>& progress) {
    if (!expected || !progress) {
        return std::nullopt;
    }
    if (expected->files >= 1 && progress->filesScanned >= 1) {
        return ratio(progress->filesScanned, expected->files);
    }
    if (expected->bytes >= 1 && progress->scannedBytes >= 1) {
        return ratio(progress->scannedBytes, expected->bytes);
    }
    return std::nullopt;
}

std::optional<Seconds> remaining(std::optional<double> fraction, Seconds elapsed) {
    constexpr double leastFraction = 0.02;
    constexpr Seconds leastTime = 0.5;
    if (!fraction || *fraction <= leastFraction || elapsed <= leastTime) {
        return std::nullopt;
    }
    return (1 - *fraction) * elapsed / *fraction;
}

}
