#include <HostKit/Collation.h>
#include <ScanKit/FileSizeCalculator.h>
#include <UninstallerKit/AppInventory.h>
#include <UninstallerKit/ApplicationFolder.h>
#include <UninstallerKit/InfoDictionary.h>
#include <UninstallerKit/LauncherBundle.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <set>
#include <utility>

namespace tolvane {
namespace {

/// Identifiers of the system's maker begin so.
constexpr std::string_view makersPrefix = "com.apple.";

std::vector<InstalledApp> sortedByName(std::vector<InstalledApp> apps) {
    const Collation collation;
    std::vector<std::pair<std::string, std::size_t>> order;
    order.reserve(apps.size());
    for (std::size_t i = 0; i < apps.size(); ++i) {
        order.emplace_back(collation.sortKey(apps[i].name), i);
    }
    // By key, then as they were found.
    std::sort(order.begin(), order.end());
    std::vector<InstalledApp> sorted;
    sorted.reserve(apps.size());
    for (const auto& [key, position] : order) {
        sorted.push_back(std::move(apps[position]));
    }
    return sorted;
}

/// Finds and reads bundles as their format has it.
class BundleReader {
  public:
    virtual ~BundleReader() = default;
    virtual std::vector<FileURL> bundles(const FileURL& folder) const = 0;
    virtual std::optional<InstalledApp> read(const FileURL& bundle, bool isSystem) const = 0;
};

class InfoDictionaryReader final : public BundleReader {
  public:
    explicit InfoDictionaryReader(const FileManager& files)
        : files_(files) {}

    std::vector<FileURL> bundles(const FileURL& folder) const override {
        return appBundles(files_, folder);
    }
    std::optional<InstalledApp> read(const FileURL& bundle, bool isSystem) const override {
        return InfoDictionary::makeApp(files_, bundle, isSystem);
    }

  private:
    const FileManager& files_;
};

class DesktopEntryReader final : public BundleReader {
  public:
    DesktopEntryReader(const FileManager& files, const ApplicationPlaces& places)
        : files_(files)
        , launchers_(userLaunchers(files, places))
        , locale_(places.locale) {}

    std::vector<FileURL> bundles(const FileURL& folder) const override {
        return launcherBundles(files_, folder, launchers_);
    }
    std::optional<InstalledApp> read(const FileURL& bundle, bool isSystem) const override {
        return makeLauncherApp(files_, bundle, isSystem, launchers_, locale_);
    }

  private:
    const FileManager& files_;
    std::vector<Launcher> launchers_;
    std::string locale_;
};

std::unique_ptr<BundleReader> readerOf(const FileManager& files, const ApplicationPlaces& places) {
    if (places.format == BundleFormat::infoDictionary) {
        return std::make_unique<InfoDictionaryReader>(files);
    }
    return std::make_unique<DesktopEntryReader>(files, places);
}

}

AppInventory::AppInventory(std::shared_ptr<const FileManager> fileManager, FileURL home,
                           std::optional<std::vector<FileURL>> directories,
                           ApplicationPlaces places)
    : files_(std::move(fileManager))
    , home_(std::move(home))
    , directories_(std::move(directories))
    , places_(std::move(places)) {}

std::vector<InstalledApp> AppInventory::scan(bool includeSystem,
                                             const std::function<bool()>& isCancelled) const {
    const std::unique_ptr<BundleReader> reader = readerOf(*files_, places_);
    std::set<std::string> seen;
    std::vector<InstalledApp> apps;
    for (const FileURL& folder : searchFolders(includeSystem)) {
        for (const FileURL& bundle : reader->bundles(folder)) {
            if (isCancelled && isCancelled()) {
                return apps;
            }
            std::optional<InstalledApp> app = reader->read(bundle, isOfSystem(bundle));
            const bool isWanted =
                app && (includeSystem || !app->bundleID.starts_with(makersPrefix));
            if (isWanted && seen.insert(app->id()).second) {
                apps.push_back(std::move(*app));
            }
        }
    }
    return sortedByName(std::move(apps));
}

std::vector<ScanFailure> AppInventory::unreadFolders(bool includeSystem) const {
    std::vector<ScanFailure> failures;
    for (const FileURL& folder : searchFolders(includeSystem)) {
        std::ranges::move(tolvane::unreadFolders(*files_, folder), std::back_inserter(failures));
    }
    return failures;
}

Bytes AppInventory::size(const InstalledApp& app, const std::function<bool()>& isCancelled) const {
    return FileSizeCalculator::allocatedSize(*files_, app.url, isCancelled);
}

std::vector<FileURL> AppInventory::searchFolders(bool includeSystem) const {
    if (directories_) {
        return *directories_;
    }
    std::vector<std::string> names = places_.folders;
    if (includeSystem) {
        names.insert(names.end(), places_.systemFolders.begin(), places_.systemFolders.end());
    }
    std::vector<FileURL> folders;
    folders.reserve(names.size());
    for (const std::string& name : names) {
        folders.push_back(FileURL::absolute(name, home_.path()));
    }
    return folders;
}

bool AppInventory::isOfSystem(const FileURL& bundle) const {
    return std::any_of(
        places_.systemPrefixes.begin(), places_.systemPrefixes.end(),
        [&](const std::string& prefix) { return bundle.path().starts_with(prefix); });
}

}
