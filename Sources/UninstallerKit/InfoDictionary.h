#pragma once

#include <HostKit/FileManager.h>
#include <UninstallerKit/InstalledApp.h>

#include <optional>
#include <string_view>

/// Reads bundles that tell of themselves in "Contents/Info.plist".
namespace tolvane::InfoDictionary {

/// The version of an application that tells none: an em dash.
inline constexpr std::string_view unknownVersion = "\u2014";

/// Whether the folder has a dictionary.
bool isIn(const FileManager& files, const FileURL& bundle);

/// Absent when `bundle` does not lead to a folder. A dictionary that is missing or cannot be read
/// is an empty one.
std::optional<InstalledApp> makeApp(const FileManager& files, const FileURL& bundle, bool isSystem);

/// The bundle's picture, which it keeps among its resources; absent when it declares none, or one
/// that is not there.
std::optional<FileURL> iconFile(const FileManager& files, const FileURL& bundle);

}
