#pragma once

#include <HostKit/FileURL.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

/// How a folder tells what is started.
enum class StartupFormat : std::uint8_t {
    /// Property lists of launchd.
    propertyList,
    /// Desktop entries (freedesktop.org Desktop Application Autostart specification 0.5).
    autostart,
    /// Services of systemd, and the folders of links that enable them (systemd.unit(5)).
    unit
};

/// A folder whose files start programs at log-in or boot.
struct StartupFolder {
    /// "user", "system" or "daemon".
    std::string scope;
    StartupFormat format = StartupFormat::propertyList;
    /// A relative one lies in the user's home folder.
    std::string path;
};

/// What starts programs by itself.
struct StartupPlaces {
    /// In the order in which they are listed; of autostart folders an earlier one overrides the
    /// same file name in a later one.
    std::vector<StartupFolder> folders = {};
    /// The desktop that runs, by the names it goes under; entries may be for one or not for one.
    std::vector<std::string> desktops = {};
    /// Where a program is looked for that is named without a path.
    std::vector<FileURL> programFolders = {};
    /// The language of names ("de_DE.UTF-8").
    std::string locale = {};
};

}
