#include <HostKit/ChildProcess.h>
#include <HostKit/Lines.h>
#include <HostKit/Text.h>
#include <PerformanceKit/SnapperTable.h>
#include <PerformanceKit/SnapshotScanner.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tolvane {
namespace {

/// What the tools told of one volume.
struct Told {
    std::string names;
    std::string purgeability;
};

/// The first "2024-03-01-101500" in the line.
std::optional<std::string> dateIn(std::string_view line) {
    constexpr std::string_view pattern = "0000-00-00-000000";
    const auto fits = [](char letter, char wanted) {
        return wanted == '0' ? letter >= '0' && letter <= '9' : letter == wanted;
    };
    const auto found = std::search(line.begin(), line.end(), pattern.begin(), pattern.end(), fits);
    return found == line.end() ? std::nullopt
                               : std::optional(std::string(found, found + pattern.size()));
}

std::string output(const Tool& tool, const std::function<bool()>& isCancelled) {
    return run({.tool = tool, .pipes = Pipes::readWhileRunning, .isCancelled = isCancelled}).output;
}

std::vector<LocalSnapshot> snapshots(const SnapshotVolume& volume, const Told& told) {
    return SnapshotScanner::parse(told.names, volume.volume,
                                  SnapshotScanner::parsePurgeableNames(told.purgeability));
}

}

SnapshotInventory SnapshotScanner::scan(const SnapshotTools& tools,
                                        const std::function<bool()>& isCancelled) {
    Told system{output(tools.system.list, isCancelled), ""};
    Told data{output(tools.data.list, isCancelled), ""};
    if (tools.format == SnapshotFormat::snapper) {
        system = {SnapperTable::names(system.names), SnapperTable::purgeability(system.names)};
        data = {SnapperTable::names(data.names), SnapperTable::purgeability(data.names)};
    }
    if (tools.system.listPurgeable) {
        system.purgeability = output(*tools.system.listPurgeable, isCancelled);
    }
    if (tools.data.listPurgeable) {
        data.purgeability = output(*tools.data.listPurgeable, isCancelled);
    }
    return {snapshots(tools.system, system), snapshots(tools.data, data)};
}

std::vector<LocalSnapshot> SnapshotScanner::parse(std::string_view text, const std::string& volume,
                                                  const std::set<std::string>& purgeableNames) {
    std::vector<LocalSnapshot> found;
    while (!text.empty()) {
        const std::string line(trimmed(takeLine(text)));
        if (std::optional<std::string> date = dateIn(line)) {
            found.push_back({std::move(*date), volume, purgeableNames.contains(line)});
        }
    }
    std::stable_sort(
        found.begin(), found.end(),
        [](const LocalSnapshot& a, const LocalSnapshot& b) { return a.date > b.date; });
    return found;
}

std::set<std::string> SnapshotScanner::parsePurgeableNames(std::string_view text) {
    constexpr std::string_view nameKey = "Name:";
    constexpr std::string_view purgeableKey = "Purgeable:";
    std::set<std::string> names;
    std::optional<std::string> current;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        if (line.starts_with(nameKey)) {
            current = trimmed(line.substr(nameKey.size()));
        } else if (line.starts_with(purgeableKey) && current &&
                   lowercased(trimmed(line.substr(purgeableKey.size()))) == "yes") {
            names.insert(*current);
        }
    }
    return names;
}

}
