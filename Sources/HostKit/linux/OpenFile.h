#pragma once

#include <HostKit/ReadableFile.h>
#include <HostKit/linux/Descriptor.h>

#include <memory>
#include <string_view>

namespace tolvane {

/// Opens a regular file. Nothing else is opened for longer than it takes to see what it is, and
/// nothing is waited for; a link is refused.
Result<std::unique_ptr<ReadableFile>, SystemError> openRegularFile(std::string_view path);

}
