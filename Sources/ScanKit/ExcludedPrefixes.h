#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>
#include <HostKit/MountTable.h>

#include <string>
#include <vector>

namespace tolvane {

/// What a scan of `root` leaves out: the fixed prefixes and the mounts that are no part of this
/// machine's disks, less any that equals or contains `root`, so that whatever a person picks can be
/// scanned.
std::vector<std::string> excludedPrefixes(const FileURL& root, const HostLayout& layout,
                                          const MountTable& mounts);

}
