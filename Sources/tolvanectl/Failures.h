#pragma once

#include "Console.h"
#include "NodeWriter.h"

#include <ScanKit/ScanFailure.h>

#include <vector>

namespace tolvane {

/// Names the first few items that could not be read, and counts the others.
void complainOfFailures(Console& console, const std::vector<ScanFailure>& failures);

/// Prints `[{path, reason}]`.
void writeFailures(Output& out, NodeWriter& writer, const std::vector<ScanFailure>& failures);

}
