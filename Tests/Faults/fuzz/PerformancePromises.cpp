#include "Promises.h"

#include <HostKit/MemoryInfo.h>
#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/ProcessSampler.h>
#include <PerformanceKit/SnapperTable.h>
#include <PerformanceKit/SnapshotScanner.h>
#include <PerformanceKit/UnitFile.h>

#include <algorithm>

namespace tolvane {

std::string brokenHeavyProcessesPromise(std::string_view bytes) {
    const std::vector<HeavyProcess> processes = ProcessSampler::parse(bytes, bytes.size());
    const auto isMadeUp = [&](const HeavyProcess& process) {
        return process.name.empty() || bytes.find(process.name) == std::string_view::npos;
    };
    const auto isHeavier = [](const HeavyProcess& a, const HeavyProcess& b) {
        return a.rssBytes > b.rssBytes;
    };
    if (std::any_of(processes.begin(), processes.end(), isMadeUp) ||
        !std::is_sorted(processes.begin(), processes.end(), isHeavier)) {
        return "nothing is made up, and the heaviest come first";
    }
    const std::vector<HeavyProcess> few = ProcessSampler::parse(bytes, 2);
    return std::equal(few.begin(), few.end(), processes.begin()) ? "" : "a limit only cuts off";
}

std::string brokenMemoryInfoPromise(std::string_view bytes) {
    const std::int32_t level = MemoryInfo::pressureLevel(bytes);
    if ((level != 1 && level != 2 && level != 4) || MemoryInfo::compressedDisk(bytes) < 0) {
        return "there are three levels, and nothing takes less than nothing";
    }
    const auto of = MemoryInfo::parse(bytes);
    if (of && (of->free < 0 || of->inactive < 0 || of->wired < 0 || of->swapUsed < 0 ||
               of->swapUsed > of->swapTotal)) {
        return "nothing is negative";
    }
    const auto stats = of ? MemorySampler::stats(*of) : std::nullopt;
    return stats && stats->used() > stats->total ? "no more is used than there is" : "";
}

std::string brokenSnapshotsPromise(std::string_view bytes) {
    const auto isMadeUp = [&](std::string_view text) {
        return bytes.find(text) == std::string_view::npos;
    };
    const std::set<std::string> names = SnapshotScanner::parsePurgeableNames(bytes);
    bool isBroken = std::any_of(names.begin(), names.end(), isMadeUp);
    std::string last(1, '~');
    for (const LocalSnapshot& snapshot : SnapshotScanner::parse(bytes, "/", names)) {
        isBroken = isBroken || isMadeUp(snapshot.date) || snapshot.date > last;
        last = snapshot.date;
    }
    return isBroken ? "nothing is made up, and the newest come first" : "";
}

std::string brokenSnapperTablePromise(std::string_view bytes) {
    const std::string names = SnapperTable::names(bytes);
    const std::string told = SnapperTable::purgeability(bytes);
    const auto rows = std::count(names.begin(), names.end(), '\n');
    return std::count(told.begin(), told.end(), '\n') == 2 * rows &&
                   std::ssize(SnapshotScanner::parse(names, "/", {})) == rows
               ? ""
               : "each row that counts is a snapshot that may be deleted or not";
}

std::string brokenUnitFilePromise(std::string_view bytes) {
    const std::optional<UnitFile> unit = UnitFile::parse(bytes);
    return unit && unit->program == "" ? "a program has a name" : "";
}

}
