#pragma once

#include <HostKit/Checked.h>
#include <HostKit/Identifier.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tolvane {

class FileNode;

/// The nodes of a tree in pre-order, so that a subtree is a range of positions, with what is asked
/// of many nodes at a time: where they hang, how large they are, which one bears an id. 32 bytes a
/// node.
class TreeIndex {
  public:
    using Position = std::uint32_t;
    static constexpr Position nowhere = UINT32_MAX;

    /// The index of no tree.
    TreeIndex() = default;
    /// Points into the tree: `root` has to stay where it is for as long as the index is used. The
    /// root's position is 0.
    explicit TreeIndex(const FileNode& root);

    Position count() const { return static_cast<Position>(nodes_.size()); }
    const FileNode& node(Position position) const { return *nodes_[position]; }
    /// `nowhere` for the root.
    Position parent(Position position) const { return parents_[position]; }
    /// The position behind the node and all below it.
    Position end(Position position) const { return ends_[position]; }
    /// Of every node, by position.
    const std::vector<std::uint32_t>& childCounts() const { return childCounts_; }
    Bytes totalAllocatedSize(Position position) const { return sizes_[position]; }
    /// The sum over the node's children; what is its own or hidden in it left out.
    Bytes sizeOfChildren(Position position) const;
    /// Takes time logarithmic in the count.
    std::optional<Position> find(const Identifier& id) const;

  private:
    struct Key;

    Bytes append(const FileNode& node, Position parent, std::vector<Key>& keys);
    void sortByID(std::vector<Key>& keys);

    std::vector<const FileNode*> nodes_;
    std::vector<Position> parents_;
    std::vector<Position> ends_;
    std::vector<std::uint32_t> childCounts_;
    std::vector<Bytes> sizes_;
    std::vector<Position> byID_;
};

}
