#include <CleanupKit/ProtectionPolicy.h>
#include <UninstallerKit/AppIcons.h>
#include <UninstallerKit/AppInventory.h>
#include <UninstallerKit/LeftoverFinder.h>

#include <Controllers/UninstallerScan.h>

#include <optional>
#include <utility>

namespace tolvane::UninstallerScan {
namespace {

constexpr bool includesSystem = true;
constexpr bool includesSystemLevel = true;

AppInventory inventoryOf(const HostLayout& layout,
                         const std::shared_ptr<const FileManager>& files) {
    return AppInventory(files, layout.locations.home, std::nullopt, layout.applications);
}

}

Inventory inventory(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
                    const Report<std::int64_t>& report, const std::function<bool()>& isCancelled) {
    const AppInventory inventory = inventoryOf(layout, files);
    std::int64_t count = 0;
    std::vector<InstalledApp> apps = inventory.scan(!includesSystem, [&] {
        report(count++);
        return isCancelled();
    });
    Inventory result;
    result.rows.reserve(apps.size());
    for (InstalledApp& app : apps) {
        result.rows.emplace_back(std::move(app));
    }
    result.failures = inventory.unreadFolders(!includesSystem);
    result.installed = std::make_shared<const std::vector<InstalledApp>>(
        inventory.scan(includesSystem, isCancelled));
    return result;
}

Detail detail(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
              const InstalledApp& app, const InstalledApps& installed,
              const std::function<bool()>& isCancelled) {
    const LeftoverFinder finder(layout.locations.home, layout.locations.systemLibrary, files,
                                ProtectionPolicy(layout.protection), layout.leftovers);
    Detail detail;
    detail.appSize = inventoryOf(layout, files).size(app, isCancelled);
    detail.leftovers = finder.leftovers(app, includesSystemLevel, isCancelled);
    detail.origins = finder.origins(detail.leftovers, app, *installed);
    return detail;
}

Icons icons(const HostLayout& layout, const FileManager& files, const std::vector<AppRow>& apps,
            const std::function<bool()>& isCancelled) {
    const AppIcons finder(files, layout.applications);
    Icons icons;
    for (const AppRow& row : apps) {
        if (isCancelled()) {
            break;
        }
        const QString key = AppRows::iconKey(finder.file(row.app()));
        if (!key.isEmpty()) {
            icons.emplace(row.app().id(), key);
        }
    }
    return icons;
}

}
