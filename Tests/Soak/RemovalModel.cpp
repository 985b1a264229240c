#include "RemovalModel.h"

#include <HostKit/Text.h>

#include <algorithm>

namespace tolvane {
namespace {

bool isBelow(const std::string& path, const std::string& folder) {
    return path.size() > folder.size() && path.starts_with(folder + "/");
}

}

TreeState RemovalModel::content(const std::string& path) const {
    TreeState content;
    for (const auto& [place, description] : tree) {
        if (place == path || isBelow(place, path)) {
            content[place.substr(path.size())] = description;
        }
    }
    return content;
}

std::vector<std::string> RemovalModel::withoutNested(const std::vector<std::string>& paths) {
    std::vector<std::string> kept;
    for (const std::string& path : paths) {
        const bool isNested = std::any_of(paths.begin(), paths.end(),
                                          [&](const auto& other) { return isBelow(path, other); });
        if (!isNested && std::find(kept.begin(), kept.end(), path) == kept.end()) {
            kept.push_back(path);
        }
    }
    std::stable_sort(kept.begin(), kept.end(), [](const auto& a, const auto& b) {
        return characterCount(a) < characterCount(b);
    });
    return kept;
}

void RemovalModel::moveToTrash(const std::string& path, const std::string& trashName) {
    trash[trashName] = {path, content(path)};
    std::erase_if(
        tree, [&](const auto& entry) { return entry.first == path || isBelow(entry.first, path); });
}

bool RemovalModel::hasFileAbove(const std::string& path) const {
    return std::any_of(tree.begin(), tree.end(), [&](const auto& entry) {
        return entry.second != "folder" && isBelow(path, entry.first);
    });
}

bool RemovalModel::mayPutBack(const std::string& trashName) const {
    const auto found = trash.find(trashName);
    return found != trash.end() && !has(found->second.original) &&
           !hasFileAbove(found->second.original);
}

void RemovalModel::putBack(const std::string& trashName) {
    const Trashed item = trash.at(trashName);
    for (std::size_t end = item.original.find('/', 1); end != std::string::npos;
         end = item.original.find('/', end + 1)) {
        tree[item.original.substr(0, end)] = "folder";
    }
    for (const auto& [below, description] : item.content) {
        tree[item.original + below] = description;
    }
    trash.erase(trashName);
}

}
