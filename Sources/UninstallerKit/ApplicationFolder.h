#pragma once

#include <HostKit/FileManager.h>
#include <ScanKit/ScanFailure.h>

#include <string>
#include <vector>

namespace tolvane {

/// One entry of a folder, as a search for applications asks for it.
struct FolderEntry {
    std::string name;
    /// Of the entry itself; `unknown` when its attributes cannot be read.
    EntryType type = EntryType::unknown;
};

/// What lies directly in the folder, hidden entries left out, in listing order; nothing when it
/// cannot be listed.
std::vector<FolderEntry> shownEntries(const FileManager& files, const FileURL& folder);

/// The folder and those directly below it that cannot be listed though they are there, and why.
std::vector<ScanFailure> unreadFolders(const FileManager& files, const FileURL& folder);

/// The bundles (named ".app") in the folder and in the folders directly below it that are none, in
/// listing order.
std::vector<FileURL> appBundles(const FileManager& files, const FileURL& folder);

}
