#include "Promises.h"

#include <HostKit/MemoryInfo.h>

#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/ProcessSampler.h>
#include <PerformanceKit/SnapperTable.h>
#include <PerformanceKit/SnapshotScanner.h>
#include <PerformanceKit/UnitFile.h>

#include <algorithm>
#include <cmath>

namespace tolvane {

std::string brokenHeavyProcessesPromise(std::string_view bytes) {
    constexpr std::size_t all = 1'000'000;
    const std::vector<HeavyProcess> processes = ProcessSampler::parse(bytes, all);
    for (const HeavyProcess& process : processes) {
        if (process.name.empty() || bytes.find(process.name) == std::string_view::npos ||
            !std::isfinite(process.cpuPercent)) {
            return "nothing is made up";
        }
    }
    const auto isHeavier = [](const HeavyProcess& a, const HeavyProcess& b) {
        return a.rssBytes > b.rssBytes;
    };
    if (!std::is_sorted(processes.begin(), processes.end(), isHeavier)) {
        return "the heaviest come first";
    }
    const std::vector<HeavyProcess> few = ProcessSampler::parse(bytes, 2);
    return std::equal(few.begin(), few.end(), processes.begin()) ? "" : "a limit only cuts off";
}

std::string brokenMemoryInfoPromise(std::string_view bytes) {
    const std::int32_t level = MemoryInfo::pressureLevel(bytes);
    if (level != 1 && level != 2 && level != 4) {
        return "there are three levels";
    }
    const std::optional<MemoryCounters> counters = MemoryInfo::parse(bytes);
    if (MemoryInfo::compressedDisk(bytes) < 0 ||
        (counters && (counters->free < 0 || counters->inactive < 0 || counters->wired < 0 ||
                      counters->swapUsed < 0 || counters->swapUsed > counters->swapTotal))) {
        return "nothing is negative";
    }
    const auto stats = counters ? MemorySampler::stats(*counters) : std::nullopt;
    return stats && stats->used() > stats->total ? "no more is used than there is" : "";
}

std::string brokenSnapshotsPromise(std::string_view bytes) {
    const std::set<std::string> names = SnapshotScanner::parsePurgeableNames(bytes);
    for (const std::string& name : names) {
        if (bytes.find(name) == std::string_view::npos) {
            return "no name is made up";
        }
    }
    const std::vector<LocalSnapshot> snapshots = SnapshotScanner::parse(bytes, "/", names);
    for (const LocalSnapshot& snapshot : snapshots) {
        if (snapshot.date.size() != 17 || bytes.find(snapshot.date) == std::string_view::npos) {
            return "no date is made up";
        }
    }
    const auto isNewer = [](const LocalSnapshot& a, const LocalSnapshot& b) {
        return a.date > b.date;
    };
    return std::is_sorted(snapshots.begin(), snapshots.end(), isNewer) ? "" : "newest come first";
}

std::string brokenSnapperTablePromise(std::string_view bytes) {
    const std::string names = SnapperTable::names(bytes);
    const std::string purgeability = SnapperTable::purgeability(bytes);
    const auto rows = std::count(names.begin(), names.end(), '\n');
    const auto snapshots =
        SnapshotScanner::parse(names, "/", SnapshotScanner::parsePurgeableNames(purgeability));
    if (std::ssize(snapshots) != rows) {
        return "each row that counts is a snapshot";
    }
    return std::count(purgeability.begin(), purgeability.end(), '\n') == 2 * rows
               ? ""
               : "of each is told whether it may be deleted";
}

std::string brokenUnitFilePromise(std::string_view bytes) {
    const std::optional<UnitFile> unit = UnitFile::parse(bytes);
    return unit && unit->program == "" ? "a program has a name" : "";
}

}
