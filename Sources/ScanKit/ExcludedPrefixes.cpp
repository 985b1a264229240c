#include <ScanKit/ExcludedPrefixes.h>
#include <ScanKit/FileTreeScanner.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

/// Adds `prefix` unless the scan's root lies there or the list leaves it out already.
void addPrefix(std::vector<std::string>& list, std::string prefix, const FileURL& root) {
    const bool isListed = std::any_of(list.begin(), list.end(), [&](const std::string& listed) {
        return liesWithin(prefix, listed);
    });
    if (!isListed && !liesWithin(root.path(), prefix)) {
        list.push_back(std::move(prefix));
    }
}

}

std::vector<std::string> excludedPrefixes(const FileURL& root, const HostLayout& layout,
                                          const MountTable& mounts) {
    std::vector<std::string> list;
    for (const std::string& prefix : FileTreeScanner::defaultExcludedPrefixes()) {
        addPrefix(list, prefix, root);
    }
    if (layout.exclusions.usesMountTable) {
        for (std::string& mountPoint : mounts.excludedMounts(layout.withoutAlias(root))) {
            const FileURL seen = layout.asSeenFrom(root, FileURL(std::move(mountPoint)));
            addPrefix(list, seen.path(), root);
        }
    }
    return list;
}

std::vector<std::string> excludedPrefixes(const FileURL& root, const HostLayout& layout,
                                          const FileManager& files) {
    const FileURL place = files.resolvingLinks(root);
    std::vector<std::string> list = excludedPrefixes(place, layout, files.mounts());
    const std::string start = place.path() == "/" ? "/" : place.path() + "/";
    for (std::string& prefix : list) {
        if (prefix.starts_with(start)) {
            prefix = root.appending(prefix.substr(start.size())).path();
        }
    }
    std::erase_if(list, [&](const std::string& prefix) { return liesWithin(root.path(), prefix); });
    return list;
}

}
