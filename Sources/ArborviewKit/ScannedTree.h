#pragma once

#include <ArborviewKit/TreeIndex.h>
#include <ScanKit/FileNode.h>

#include <memory>
#include <vector>

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
    /// The node with this path; null when the tree has none. Takes time for the folders on the way
    /// and their children, not for the whole tree.
    const FileNode* find(const FileURL& url) const;
    /// For each of `nodes`, which may be those of an earlier tree, what stands for it here: the
    /// node with its id, else the one with its path, else null.
    std::vector<const FileNode*> counterparts(const std::vector<FileNode>& nodes) const;
    /// The root of this tree with `node` in the place of the one that bears `id`: the folders above
    /// keep their ids. `node` itself when `id` is the root's; the root as it is when the tree does
    /// not hold `id`.
    FileNode rootReplacing(const Identifier& id, FileNode node) const;

  private:
    explicit ScannedTree(FileNode root);

    FileNode root_;
    TreeIndex index_;
};

}
