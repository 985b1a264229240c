#include <ArborviewKit/ScannedTree.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tolvane {
namespace {

/// Finds nodes by their paths and remembers the names of each folder it came through.
class PathFinder {
  public:
    explicit PathFinder(const FileNode& root)
        : root_(root)
        , rootPath_(root.url().path()) {}

    const FileNode* find(const std::string& path) {
        if (path == rootPath_) {
            return &root_;
        }
        const bool isRootOfAll = rootPath_ == "/";
        if (!isRootOfAll && !liesWithin(path, rootPath_)) {
            return nullptr;
        }
        return descend(std::string_view(path).substr(isRootOfAll ? 1 : rootPath_.size() + 1));
    }

  private:
    using Names = std::unordered_map<std::string_view, const FileNode*>;

    const FileNode* descend(std::string_view relative) {
        const FileNode* node = &root_;
        while (node != nullptr && !relative.empty()) {
            const std::size_t length = std::min(relative.find('/'), relative.size());
            node = child(*node, relative.substr(0, length));
            relative.remove_prefix(std::min(length + 1, relative.size()));
        }
        return node;
    }

    const FileNode* child(const FileNode& folder, std::string_view name) {
        const auto [names, isNew] = folders_.try_emplace(&folder);
        if (isNew) {
            for (const FileNode& node : folder.children()) {
                names->second.emplace(node.name(), &node);
            }
        }
        const auto found = names->second.find(name);
        return found == names->second.end() ? nullptr : found->second;
    }

    const FileNode& root_;
    const std::string rootPath_;
    std::unordered_map<const FileNode*, Names> folders_;
};

FileNode replacingChild(const FileNode& folder, const Identifier& id, FileNode node) {
    std::vector<FileNode> children = folder.children();
    const auto place = std::find_if(children.begin(), children.end(),
                                    [&](const FileNode& child) { return child.id() == id; });
    *place = std::move(node);
    return folder.settingChildren(std::move(children));
}

}

ScannedTree::ScannedTree(FileNode root)
    : root_(std::move(root))
    , index_(root_) {}

std::shared_ptr<const ScannedTree> ScannedTree::of(FileNode root) {
    return std::shared_ptr<const ScannedTree>(new ScannedTree(std::move(root)));
}

const FileNode* ScannedTree::find(const Identifier& id) const {
    const std::optional<TreeIndex::Position> position = index_.find(id);
    return position ? &index_.node(*position) : nullptr;
}

const FileNode* ScannedTree::find(const FileURL& url) const {
    return PathFinder(root_).find(url.path());
}

std::vector<const FileNode*> ScannedTree::counterparts(const std::vector<FileNode>& nodes) const {
    PathFinder finder(root_);
    std::vector<const FileNode*> found;
    found.reserve(nodes.size());
    for (const FileNode& node : nodes) {
        const FileNode* same = find(node.id());
        found.push_back(same != nullptr ? same : finder.find(node.url().path()));
    }
    return found;
}

FileNode ScannedTree::rootReplacing(const Identifier& id, FileNode node) const {
    const std::optional<TreeIndex::Position> found = index_.find(id);
    if (!found) {
        return root_;
    }
    Identifier replaced = id;
    for (TreeIndex::Position place = index_.parent(*found); place != TreeIndex::nowhere;
         place = index_.parent(place)) {
        const FileNode& folder = index_.node(place);
        node = replacingChild(folder, replaced, std::move(node));
        replaced = folder.id();
    }
    return node;
}

}
