#pragma once

#include <CleanupKit/ProtectionPolicy.h>
#include <HostKit/FileManager.h>
#include <HostKit/LeftoverTable.h>
#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/LeftoverItem.h>
#include <UninstallerKit/LeftoverOrigin.h>
#include <UninstallerKit/LeftoverPlaces.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tolvane {

/// Finds what an application leaves behind: by its identifiers, and only in the places of a table.
/// What cannot be read is left out. Keeps nothing between calls; to be used from one thread at a
/// time.
class LeftoverFinder {
  public:
    LeftoverFinder(const FileURL& home, const FileURL& systemLibrary,
                   std::shared_ptr<const FileManager> fileManager, ProtectionPolicy policy,
                   LeftoverTable table);

    /// The largest first, each path once, protected ones included. `includeSystemLevel` adds the
    /// places of the whole system. `isCancelled` is asked between identifiers and cuts measuring
    /// short.
    std::vector<LeftoverItem> leftovers(const InstalledApp& app, bool includeSystemLevel,
                                        const std::function<bool()>& isCancelled = {}) const;
    /// Protected items included.
    static Bytes totalSize(const std::vector<LeftoverItem>& items);

    /// For each of the items, found for `app`, how sure that is, and whether another one of the
    /// `installed` applications would be told to have left it. Reads nothing of the disk.
    std::vector<LeftoverOrigin> origins(const std::vector<LeftoverItem>& items,
                                        const InstalledApp& app,
                                        const std::vector<InstalledApp>& installed) const;

  private:
    /// Names in the folders listed so far.
    using Listings = std::map<FileURL, std::vector<std::string>>;

    std::vector<std::string> candidates(const InstalledApp& app) const;
    std::vector<FileURL> hits(const LeftoverPlaces::Place& place, const std::string& identifier,
                              Listings& listings) const;
    std::vector<FileURL> prefixedFiles(const LeftoverPlaces::Place& place,
                                       const std::string& identifier, Listings& listings) const;
    bool hasAnotherInstallation(const std::string& identifier) const;
    bool overlaps(const FileURL& hit, const InstalledApp& app) const;

    LeftoverPlaces places_;
    std::shared_ptr<const FileManager> files_;
    ProtectionPolicy policy_;
};

}
