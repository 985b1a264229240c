#pragma once

#include <HostKit/FileManager.h>
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

/// The same for a `root` that a link may lead to: what is to be left out where it really lies, by
/// the names under which a walk that starts at `root` meets it.
std::vector<std::string> excludedPrefixes(const FileURL& root, const HostLayout& layout,
                                          const FileManager& files);

}
