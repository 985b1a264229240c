#pragma once

#include <HostKit/ApplicationPlaces.h>
#include <HostKit/FileManager.h>
#include <ScanKit/ScanFailure.h>
#include <UninstallerKit/InstalledApp.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tolvane {

/// Lists the applications that are installed, one for each identifier. What cannot be read is left
/// out. Keeps nothing between calls; to be used from one thread at a time.
class AppInventory {
  public:
    /// Without `directories` those of `places` are searched.
    AppInventory(std::shared_ptr<const FileManager> fileManager, FileURL home,
                 std::optional<std::vector<FileURL>> directories, ApplicationPlaces places);

    /// By name, in the order of the user's language. `includeSystem` adds the system's own folder
    /// and keeps the system's own applications. `isCancelled` is asked before each bundle; then
    /// those read so far are returned as they were found.
    std::vector<InstalledApp> scan(bool includeSystem,
                                   const std::function<bool()>& isCancelled = {}) const;
    /// The folders that `scan` had to leave out because they could not be listed, and why.
    std::vector<ScanFailure> unreadFolders(bool includeSystem) const;
    /// Bytes on disk of the bundle; cut short when `isCancelled`.
    Bytes size(const InstalledApp& app, const std::function<bool()>& isCancelled = {}) const;

  private:
    std::vector<FileURL> searchFolders(bool includeSystem) const;
    bool isOfSystem(const FileURL& bundle) const;

    std::shared_ptr<const FileManager> files_;
    FileURL home_;
    std::optional<std::vector<FileURL>> directories_;
    ApplicationPlaces places_;
};

}
