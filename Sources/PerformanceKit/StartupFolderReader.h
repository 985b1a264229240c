#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/StartupPlaces.h>
#include <PerformanceKit/StartupAgent.h>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// A folder of files that start programs, and what reading it takes. What cannot be read or holds
/// something else is left out.
struct StartupFolderReader {
    const FileManager& files;
    const StartupPlaces& places;
    /// Where `folder` lies.
    FileURL url;
    const StartupFolder& folder;
    const std::function<bool()>& isCancelled;

    /// Of launchd's property lists.
    std::vector<StartupAgent> launchAgents() const;
    /// Of desktop entries. `seen` holds the names of the files in more important folders, which
    /// override those here; the names found here are added.
    std::vector<StartupAgent> autostartEntries(std::set<std::string>& seen) const;
    /// Of services, by name, and of the links that enable them.
    std::vector<StartupAgent> units() const;

    /// The names in a folder that have this extension, ascending by their bytes, hidden ones left
    /// out; none when it cannot be read.
    std::vector<std::string> names(const FileURL& inFolder, std::string_view extension) const;
    bool shouldStop() const { return isCancelled && isCancelled(); }
};

/// The name without its last "." and what follows that.
std::string withoutExtension(const std::string& fileName);

}
