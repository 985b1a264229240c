#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/MountTable.h>

#include <optional>
#include <string>

namespace tolvane {

/// An item on its way to the Trash, as far as the rules ask.
struct TrashItem {
    /// As the user named it.
    std::string path;
    /// The same place without any link above the item.
    std::string linklessPath;
    bool isDirectory = false;
    bool isMountPoint = false;
    /// The mount it lies on; null when that is not known.
    const Mount* mount = nullptr;
};

/// Why the item must stay where it is; absent when it may go.
std::optional<std::string> reasonToStay(const TrashItem& item, const MountTable& mounts,
                                        const HostLayout& layout);

}
