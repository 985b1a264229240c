#pragma once

#include <string>
#include <string_view>

namespace tolvane {

/// The table that snapper prints (snapper(8), "--csvout" with the columns number, date and
/// cleanup), in the words of the tools of Time Machine. Rows without a date are dropped, as is that
/// of the running system, which has the number 0.
namespace SnapperTable {

/// A name a line, as "tmutil listlocalsnapshots" prints them; the snapshot's number ends it:
/// "com.apple.TimeMachine.2026-11-21-054658.1".
std::string names(std::string_view table);

/// "Name:" and "Purgeable:" lines, as "diskutil apfs listSnapshots" prints them. What snapper
/// cleans up by itself is purgeable.
std::string purgeability(std::string_view table);

}

}
