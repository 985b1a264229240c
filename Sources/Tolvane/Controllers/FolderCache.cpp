#include <Controllers/FolderCache.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace tolvane {

std::optional<FileNode> FolderCache::find(const FileURL& url) const {
    const auto found = folders_.find(url.path());
    return found == folders_.end() ? std::nullopt : std::optional(found->second);
}

void FolderCache::insert(const ScannedTree& tree, const FileNode& folder) {
    const std::string path = folder.url().path();
    const std::deque<std::string> before = cacheOrder_;
    for (const std::string& cached : before) {
        if (liesWithin(cached, path) || path == "/") {
            remove(cached);
        } else if (liesWithin(path, cached) || cached == "/") {
            const FileNode* now = tree.find(FileURL(cached));
            if (now != nullptr) {
                folders_.insert_or_assign(cached, *now);
            }
        }
    }
    folders_.insert_or_assign(path, folder);
    cacheOrder_.push_back(path);
    if (cacheOrder_.size() > capacity) {
        remove(std::string(cacheOrder_.front()));
    }
}

void FolderCache::touch(const FileURL& url) {
    const auto place = std::find(cacheOrder_.begin(), cacheOrder_.end(), url.path());
    if (place != cacheOrder_.end()) {
        std::rotate(place, place + 1, cacheOrder_.end());
    }
}

void FolderCache::clear() {
    folders_.clear();
    cacheOrder_.clear();
}

void FolderCache::remove(const std::string& path) {
    folders_.erase(path);
    cacheOrder_.erase(std::find(cacheOrder_.begin(), cacheOrder_.end(), path));
}

}
