#include <ArborviewKit/ScannedTree.h>

#include <utility>

namespace tolvane {

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

}
