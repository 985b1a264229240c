#pragma once

#include <HostKit/ApplicationPlaces.h>
#include <HostKit/DesktopEntry.h>
#include <HostKit/FileManager.h>

#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// A desktop entry of the user, and what it starts.
struct Launcher {
    /// Its file's name without ".desktop".
    std::string id;
    DesktopEntry entry;
    /// The programs that it starts or asks for, links resolved; only those that are there.
    std::vector<FileURL> programs;

    /// Whether one of its programs is `item` or lies in it. `item` has no links on its way.
    bool leadsInto(const FileURL& item) const;
};

/// What a file of this name is called as a launcher; absent when it is none.
std::optional<std::string> launcherID(std::string_view fileName);

/// All launchers of the user, ascending by identifier.
std::vector<Launcher> userLaunchers(const FileManager& files, const ApplicationPlaces& places);

}
