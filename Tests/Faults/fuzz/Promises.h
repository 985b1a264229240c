#pragma once

#include <string>
#include <string_view>

namespace tolvane {

/// Names the promise about trashinfo texts and names in a Trash that does not hold for these bytes;
/// empty when all do.
std::string brokenTrashInfoPromise(std::string_view bytes);

/// The same about standardised paths.
std::string brokenPathPromise(std::string_view bytes);

/// The same about what lsof prints.
std::string brokenListenersPromise(std::string_view bytes);

/// The same about what ps prints.
std::string brokenProcessTreePromise(std::string_view bytes);

/// The same about what ps prints of memory.
std::string brokenHeavyProcessesPromise(std::string_view bytes);

/// The same about how Linux tells of its memory.
std::string brokenMemoryInfoPromise(std::string_view bytes);

/// The same about what tmutil and diskutil print.
std::string brokenSnapshotsPromise(std::string_view bytes);

/// The same about the table of snapper.
std::string brokenSnapperTablePromise(std::string_view bytes);

/// The same about units.
std::string brokenUnitFilePromise(std::string_view bytes);

/// The same about property lists.
std::string brokenPropertyListPromise(std::string_view bytes);

/// The same about desktop entries.
std::string brokenDesktopEntryPromise(std::string_view bytes);

}
