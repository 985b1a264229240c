#include <ScanKit/FileSizeCalculator.h>
#include <UninstallerKit/CandidateIdentifiers.h>
#include <UninstallerKit/LeftoverFinder.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

std::vector<std::string> namesIn(const FileManager& files, const FileURL& folder) {
    const Result<std::unique_ptr<Directory>, SystemError> opened = files.openDirectory(folder, {});
    std::vector<std::string> names;
    const std::size_t count = opened ? (*opened)->count() : 0;
    names.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        names.emplace_back((*opened)->name(i));
    }
    return names;
}

}

LeftoverFinder::LeftoverFinder(const FileURL& home, const FileURL& systemLibrary,
                               std::shared_ptr<const FileManager> fileManager,
                               ProtectionPolicy policy, LeftoverTable table)
    : places_(home, systemLibrary, std::move(table))
    , files_(std::move(fileManager))
    , policy_(std::move(policy)) {}

std::vector<LeftoverItem>
LeftoverFinder::leftovers(const InstalledApp& app, bool includeSystemLevel,
                          const std::function<bool()>& isCancelled) const {
    Listings listings;
    std::map<FileURL, std::string> kinds;
    for (const std::string& identifier : candidates(app)) {
        if (isCancelled && isCancelled()) {
            break;
        }
        for (const LeftoverPlaces::Place& place : places_.places()) {
            if (place.row.root == LeftoverRoot::systemLibrary && !includeSystemLevel) {
                continue;
            }
            for (FileURL& hit : hits(place, identifier, listings)) {
                if (!overlaps(hit, app)) {
                    kinds.insert_or_assign(std::move(hit), place.row.kind);
                }
            }
        }
    }
    std::vector<LeftoverItem> items;
    items.reserve(kinds.size());
    for (const auto& [url, kind] : kinds) {
        const Bytes size = FileSizeCalculator::allocatedSize(*files_, url, isCancelled);
        items.push_back({url, kind, size, policy_.isProtected(url)});
    }
    std::stable_sort(items.begin(), items.end(),
                     [](const LeftoverItem& a, const LeftoverItem& b) { return a.size > b.size; });
    return items;
}

Bytes LeftoverFinder::totalSize(const std::vector<LeftoverItem>& items) {
    Bytes total = 0;
    for (const LeftoverItem& item : items) {
        add(total, item.size);
    }
    return total;
}

std::vector<LeftoverOrigin>
LeftoverFinder::origins(const std::vector<LeftoverItem>& items, const InstalledApp& app,
                        const std::vector<InstalledApp>& installed) const {
    const std::vector<std::string> own = CandidateIdentifiers::of(app, places_.table());
    std::vector<LeftoverOrigin> origins(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        origins[i].certainty = places_.match(items[i].url, own) == LeftoverMatch::exact
                                   ? LeftoverOrigin::Certainty::exact
                                   : LeftoverOrigin::Certainty::byName;
    }
    for (const InstalledApp& other : installed) {
        if (other.id() == app.id()) {
            continue;
        }
        const std::vector<std::string> theirs = CandidateIdentifiers::of(other, places_.table());
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (places_.match(items[i].url, theirs)) {
                origins[i].otherApps.push_back(other.name);
            }
        }
    }
    return origins;
}

std::vector<std::string> LeftoverFinder::candidates(const InstalledApp& app) const {
    std::vector<std::string> identifiers = CandidateIdentifiers::of(app, places_.table());
    std::erase_if(identifiers, [&](const std::string& identifier) {
        return hasAnotherInstallation(identifier);
    });
    return identifiers;
}

std::vector<FileURL> LeftoverFinder::hits(const LeftoverPlaces::Place& place,
                                          const std::string& identifier, Listings& listings) const {
    if (place.row.match != LeftoverMatch::exact) {
        return prefixedFiles(place, identifier, listings);
    }
    FileURL url = place.folder.appending(identifier + place.row.ending);
    return files_->exists(url) ? std::vector{std::move(url)} : std::vector<FileURL>();
}

std::vector<FileURL> LeftoverFinder::prefixedFiles(const LeftoverPlaces::Place& place,
                                                   const std::string& identifier,
                                                   Listings& listings) const {
    auto listing = listings.find(place.folder);
    if (listing == listings.end()) {
        listing = listings.emplace(place.folder, namesIn(*files_, place.folder)).first;
    }
    std::vector<FileURL> found;
    for (const std::string& name : listing->second) {
        if (places_.matches(place.row, name, identifier)) {
            found.push_back(place.folder.appending(name));
        }
    }
    return found;
}

/// What belongs to a package as well must not lose what the package keeps for the user.
bool LeftoverFinder::hasAnotherInstallation(const std::string& identifier) const {
    const std::optional<LeftoverGates>& gates = places_.table().gates;
    return gates &&
           std::any_of(gates->otherLaunchers.begin(), gates->otherLaunchers.end(),
                       [&](const FileURL& folder) {
                           return files_->itemExists(folder.appending(identifier + ".desktop"));
                       });
}

/// Where bundles lie among leftovers, what is, holds or lies in the application goes with it.
bool LeftoverFinder::overlaps(const FileURL& hit, const InstalledApp& app) const {
    return places_.table().gates &&
           (liesWithin(hit.path(), app.url.path()) || liesWithin(app.url.path(), hit.path()));
}

}
