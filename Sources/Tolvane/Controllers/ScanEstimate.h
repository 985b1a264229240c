#pragma once

#include <HostKit/Date.h>
#include <ScanKit/ScanProgress.h>

#include <Controllers/ScanStatistics.h>

#include <optional>

/// How far a scan has come, judged by what an earlier one of the same folder found.
namespace tolvane::ScanEstimate {

/// At most 0.99, so that nothing looks complete before it is; absent when there is nothing to judge
/// by.
std::optional<double> fraction(const std::optional<ScanStatistics::Expected>& expected,
                               const std::optional<ScanProgress>& progress);

/// Seconds until the end; absent as long as a guess would be wild.
std::optional<Seconds> remaining(std::optional<double> fraction, Seconds elapsed);

}
