#pragma once

#include "Console.h"
#include "Host.h"

#include <DuplicatesKit/DuplicateOptions.h>
#include <DuplicatesKit/DuplicateScanResult.h>

#include <string>
#include <vector>

namespace tolvane {

/// Everything that is told of one search for duplicates.
struct DuplicatesReport {
    DuplicateScanResult result;
    /// What the result may be wrong about, ascending.
    std::vector<std::string> uncertain;
    DuplicateOptions options;
    Seconds seconds = 0;
    bool isPartial = false;

    bool isUncertain(const DuplicateFile& file) const;
};

/// The copies that may go so that each group keeps its first file: none that is the kept file by
/// another name, none that may not be equal to it. The pointers are into `report`.
std::vector<const DuplicateFile*> removableCopies(const DuplicatesReport& report);

/// The result as one JSON object.
void writeResult(Output& out, const DuplicateScanResult& result, bool isPartial);

void printAsText(Console& console, const Host& host, const DuplicatesReport& report);
void printAsJson(Output& out, const DuplicatesReport& report);
/// The paths of the removable copies, each ended by a NUL.
void printCopies(Output& out, const DuplicatesReport& report);
/// Names what could not be read or relied on.
void complain(Console& console, const DuplicatesReport& report);

}
