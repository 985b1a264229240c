#pragma once

#include <HostKit/ApplicationPlaces.h>
#include <HostKit/DesktopEntry.h>
#include <HostKit/FileManager.h>
#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/Launcher.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Finds the pictures that applications name for themselves: in the information dictionary, or in
/// the desktop entry that describes the application (freedesktop.org Icon Theme specification 0.13,
/// the folders of "hicolor", in which every application has to put its own). Nothing is run or
/// mounted, and no picture is read: that the file holds one is for who draws it to find out.
class AppIcons {
  public:
    /// Reads the user's launchers and lists the folders of icons; `files` must outlive it.
    AppIcons(const FileManager& files, const ApplicationPlaces& places);

    /// Absent when the application names none, or one that is not there.
    std::optional<FileURL> file(const InstalledApp& app) const;

  private:
    void list(const FileURL& folder);
    std::optional<FileURL> iconOf(const DesktopEntry& entry, const FileURL& bundle) const;

    const FileManager& files_;
    BundleFormat format_;
    std::vector<Launcher> launchers_;
    /// By the names of icons, the best size of each.
    std::map<std::string, FileURL, std::less<>> themed_;
};

}
