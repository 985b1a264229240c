#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/FileURL.h>
#include <ScanKit/FileNode.h>

#include <string>
#include <vector>

namespace tolvane {

/// The items of a folder that are counted and have no row: "1,204 smaller items".
std::string itemsNotKept(const FileNode& folder);

/// What exists below `root` and a scan of it did not enter, in the order of `excludedPrefixes`.
std::vector<FileURL> notEntered(const FileURL& root,
                                const std::vector<std::string>& excludedPrefixes,
                                const FileManager& files);

}
