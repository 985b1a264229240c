#pragma once

#include <HostKit/FileURL.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

/// How an application tells about itself.
enum class BundleFormat : std::uint8_t {
    /// Folders named ".app" with an information dictionary.
    infoDictionary,
    /// AppImages, application folders and what launchers start, told of by desktop entries.
    desktopEntry
};

/// Where applications are installed that no package manager looks after.
struct ApplicationPlaces {
    BundleFormat format = BundleFormat::infoDictionary;
    /// Searched in this order; relative ones lie in the user's home folder.
    std::vector<std::string> folders = {};
    /// Searched after those when the system's own applications are wanted too.
    std::vector<std::string> systemFolders = {};
    /// What the paths of the system's own applications begin with, as text.
    std::vector<std::string> systemPrefixes = {};
    /// Holds the user's launchers, at any depth.
    FileURL launchers = {};
    /// Where a program is looked for that a launcher names without a path.
    std::vector<FileURL> programFolders = {};
    /// Hold pictures, by themselves or in icon themes; the user's own come first.
    std::vector<FileURL> iconFolders = {};
    /// The language of names ("de_DE.UTF-8").
    std::string locale = {};
    /// Which programs are left out and where they are removed, for people; empty when none are.
    std::string leftOut = {};
};

}
