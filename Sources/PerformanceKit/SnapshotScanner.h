#pragma once

#include <HostKit/SnapshotTools.h>
#include <PerformanceKit/SnapshotInventory.h>

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Lists local snapshots and tells which may be deleted. Callable from any thread.
namespace SnapshotScanner {

/// A tool that is missing or fails tells of no snapshots. Blocks while the tools run, one after the
/// other; there is no time-out, but `isCancelled` ends it.
SnapshotInventory scan(const SnapshotTools& tools, const std::function<bool()>& isCancelled = {});

/// From lines that each hold a snapshot's name with its date; other lines are dropped. The newest
/// first.
std::vector<LocalSnapshot> parse(std::string_view text, const std::string& volume,
                                 const std::set<std::string>& purgeableNames);
/// The names that "Purgeable: Yes" stands behind.
std::set<std::string> parsePurgeableNames(std::string_view text);

}

}
