#pragma once

#include <HostKit/ResourceValues.h>
#include <HostKit/Result.h>

#include <sys/stat.h>

#include <string_view>

namespace tolvane {

/// `statx(2)` on an entry of an open directory; the item itself, nothing mounted or waited for.
/// `name` ends with a NUL.
Result<struct statx, SystemError> statusAt(int directory, const char* name,
                                           int additionalFlags = 0);

/// `statx(2)` on a path of any length, the item itself.
Result<struct statx, SystemError> statusOf(std::string_view path);

/// The type of what the path leads to, links followed.
Result<struct statx, SystemError> targetStatusOf(std::string_view path);

FileType fileType(const struct statx& status);
FileIdentity identity(const struct statx& status);
ResourceValues resourceValues(const struct statx& status, bool isPurgeable);

}
