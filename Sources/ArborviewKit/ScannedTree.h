#pragma once

#include <ArborviewKit/TreeIndex.h>
#include <ScanKit/FileNode.h>

#include <memory>

namespace tolvane {

/// A tree and its index, built together where the tree is built and never edited: whoever changes a
/// tree makes another one and swaps.
class ScannedTree {
  public:
    static std::shared_ptr<const ScannedTree> of(FileNode root);
    ScannedTree(const ScannedTree&) = delete;
    ScannedTree& operator=(const ScannedTree&) = delete;

    const FileNode& root() const { return root_; }
    const TreeIndex& index() const { return index_; }
    /// The node with this id; null when the tree has none.
    const FileNode* find(const Identifier& id) const;

  private:
    explicit ScannedTree(FileNode root);

    FileNode root_;
    TreeIndex index_;
};

}
