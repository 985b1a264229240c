#pragma once

#include "Console.h"
#include "Host.h"

#include <ScanKit/ScanFailure.h>
#include <ScanKit/ScanOptions.h>
#include <ScanKit/ScanOutcome.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// Everything that is told of one scan.
struct ScanReport {
    ScanOutcome outcome;
    std::vector<ScanFailure> failures;
    ScanOptions options;
    Seconds seconds = 0;
    /// How many levels of children are printed; absent: one as text, all as JSON.
    std::optional<std::int64_t> depth;
    /// How many of the largest kept files are listed; absent: no list.
    std::optional<std::int64_t> top;

    bool isPartial() const { return outcome.outcome == ScanOutcome::Case::cancelled; }
};

/// The `count` largest kept files below `root`, largest first, equal ones in the order of the tree.
/// The pointers are into `root`.
std::vector<const FileNode*> largestFiles(const FileNode& root, std::int64_t count);

void printAsText(Console& console, const Host& host, const ScanReport& report);
void printAsJson(Output& out, const ScanReport& report);

}
