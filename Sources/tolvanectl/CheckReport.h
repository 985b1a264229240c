#pragma once

#include "Console.h"

#include <BrightpassKit/BrightpassReport.h>

namespace tolvane {

/// Prints what a check found, for people.
void printAsText(Console& console, const BrightpassReport& report, bool isPartial);
/// The same as one JSON document.
void printAsJson(Output& out, const BrightpassReport& report, bool isPartial);

}
