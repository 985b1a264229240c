#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/linux/LongPath.h>

#include <sys/stat.h>

#include <string>

namespace tolvane {

/// An item that was found from the folder the user chose.
struct LocatedItem {
    ItemPlace place;
    struct statx status;
    /// Its path without any link above it.
    std::string linklessPath;

    dev_t device() const;
};

/// Finds `item` from `within`, which must contain it (EINVAL). Links on the way to `within` are
/// followed; below it none is, so that a folder that was swapped for a link leads nowhere else.
Result<LocatedItem, SystemError> locate(const FileURL& item, const FileURL& within,
                                        const FileURL& proc);

}
