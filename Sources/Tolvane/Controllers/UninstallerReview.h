#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/LeftoverItem.h>
#include <UninstallerKit/LeftoverOrigin.h>

#include <Controllers/Removal.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// The removal of an application: its rows, where they may lie, and what a person should know
/// beforehand.
namespace tolvane::UninstallerReview {

/// The application and its leftovers, which must not be protected.
std::vector<ReviewItem> items(const InstalledApp& app, Bytes appSize,
                              const std::vector<LeftoverItem>& leftovers);

/// Whether the row is that of the application itself.
bool isApp(const ReviewItem& item, const InstalledApp& app);

/// Leftovers must lie below the home folder and be free to go; the application may lie in a
/// protected folder of applications, and so is only held to the folder that it lies in.
Removal::Bounds bounds(const ReviewItem& item, const InstalledApp& app, const FileURL& home);

/// First the leftovers, then the application: of both only what there is.
std::vector<Removal::Step> steps(const std::vector<ReviewItem>& items, const InstalledApp& app,
                                 const FileURL& home);

/// Which other applications rows would be found for, by their ids.
using Claims = std::map<std::string, std::string>;
Claims claims(const std::vector<LeftoverItem>& leftovers,
              const std::vector<LeftoverOrigin>& origins);

/// Warns of what this user may not move, of an application that runs, and of `claims`; tells which
/// rows are folders. To be called on a worker.
Removal::Warnings warnings(const InstalledApp& app, const Claims& claims, const FileManager& files,
                           const HostLayout::Sources& sources, const std::vector<ReviewItem>& items,
                           const std::function<bool()>& isCancelled);

}
