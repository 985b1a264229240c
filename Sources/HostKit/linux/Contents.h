#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/Result.h>
#include <HostKit/linux/Descriptor.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvane {

/// What the file holds that `url` leads to, at most `limit` bytes. For files of the system itself:
/// a pipe would be waited for.
Result<std::string, SystemError> readFile(const FileURL& url,
                                          std::size_t limit = std::string::npos);

/// What `file` holds from its position on, at most `limit` bytes.
Result<std::string, SystemError> readContents(const Descriptor& file, std::size_t limit);

/// Writes all of `content`; an error leaves what was written so far.
Result<void, SystemError> writeContents(const Descriptor& file, std::string_view content);

}
