#pragma once

#include <HostKit/Result.h>
#include <HostKit/linux/Descriptor.h>

#include <sys/types.h>

#include <string>
#include <string_view>

namespace tolvane {

/// `open(2)` for a path of any length, always with O_CLOEXEC. Longer ones than PATH_MAX are opened
/// step by step; links on the way are followed.
Result<Descriptor, SystemError> openPath(std::string_view path, int flags, mode_t mode = 0);

/// An item by the directory it lies in, for the calls that take a directory and a name.
struct ItemPlace {
    /// Opened with O_PATH.
    Descriptor parent;
    std::string name;
};

/// The place of the item with this path, links on the way followed. "/" is "." within itself.
Result<ItemPlace, SystemError> openParent(std::string_view path);

}
