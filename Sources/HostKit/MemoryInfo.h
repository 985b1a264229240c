#pragma once

#include <HostKit/Machine.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace tolvane {

/// How Linux tells of its memory.
namespace MemoryInfo {

/// From the text of /proc/meminfo (proc(5)), of which a count is a kibibyte; absent when one of the
/// lines is missing without which there is no telling how much memory is free. Without swap its
/// sizes are 0.
std::optional<MemoryCounters> parse(std::string_view meminfo);

/// 4 when all programs waited for memory a tenth of the last ten seconds, 2 when some did, else 1;
/// from the text of /proc/pressure/memory (Documentation/accounting/psi.rst).
std::int32_t pressureLevel(std::string_view pressure);

/// The bytes that a compressed disk takes of memory, from the text of its mm_stat
/// (Documentation/admin-guide/blockdev/zram.rst); 0 when it is none.
Bytes compressedDisk(std::string_view statistics);

}

}
