#pragma once

#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/Launcher.h>

#include <optional>
#include <string_view>
#include <vector>

/// Applications of systems whose launchers are desktop entries: AppImages (type 1 and 2 of their
/// specification), application folders (named ".app" or ".AppDir", or with an "AppRun" and a
/// desktop entry in them), and other folders that a launcher of the user leads into. None of them
/// is ever run or mounted.
namespace tolvane {

/// The applications in the folder and in the folders directly below it that are none, in listing
/// order. Links and hidden entries are none.
std::vector<FileURL> launcherBundles(const FileManager& files, const FileURL& folder,
                                     const std::vector<Launcher>& launchers);

/// What the application, one of `launcherBundles`, tells of itself in the language of `locale`.
std::optional<InstalledApp> makeLauncherApp(const FileManager& files, const FileURL& bundle,
                                            bool isSystem, const std::vector<Launcher>& launchers,
                                            std::string_view locale);

}
