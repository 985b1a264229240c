#pragma once

#include <ArborviewKit/Bitmap.h>
#include <ArborviewKit/ScannedTree.h>

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

namespace tolvane {

enum class SelectionState : std::uint8_t { none, partial, all };

/// Which items of a scanned tree are ticked for removal. Sizes are those of the time of loading.
/// For one thread; nothing takes longer than a glance, whatever the size of the tree.
class SelectionModel {
  public:
    SelectionModel() = default;
    SelectionModel(const SelectionModel&) = delete;
    SelectionModel& operator=(const SelectionModel&) = delete;

    /// Replaces everything; nothing is selected. Builds the index on this thread, which takes a
    /// while for a large tree.
    void load(FileNode root);
    /// Replaces everything; nothing is selected.
    void load(std::shared_ptr<const ScannedTree> tree);

    bool isSelected(const Identifier& id) const;
    /// Of a selected item `all`, whatever is ticked below it; else what its children are.
    SelectionState state(const Identifier& id) const;
    /// Deselects what is selected and selects what is not or partly, with all below it. A folder
    /// whose last child becomes selected joins. One that is selected stays so, with its whole size,
    /// when something in it is deselected: deliberately, only its own tick takes it out.
    void toggle(const Identifier& id);
    void selectAll();
    /// Deselects all; the tree stays.
    void clear();

    /// The sum over the selected items, without those whose parent is selected.
    Bytes selectedSize() const { return selectedSize_; }
    /// Each id once.
    std::vector<Identifier> selectedIDs() const;
    /// The selected items without those inside others, in the order of the tree.
    std::vector<FileNode> topLevel() const;
    /// How many those are.
    std::size_t topLevelCount() const;

  private:
    using Position = TreeIndex::Position;

    void setSubtree(Position position, bool isTicked);
    void propagateUp(Position position);
    void countAtParent(Position position, int change);
    /// What a ticked node adds to the selected size: nothing when its parent is ticked.
    Bytes countedSize(Position position) const;
    /// What all ticked nodes from `top` down add to the selected size.
    Bytes tickedSize(Position top) const;
    const TreeIndex& index() const { return tree_->index(); }

    std::shared_ptr<const ScannedTree> tree_;
    Bitmap ticked_;
    /// Of every node: how many of its children are ticked. A node whose children all are is ticked
    /// itself, as every change is carried up; so a state needs no walk.
    std::vector<std::uint32_t> tickedChildren_;
    Bytes selectedSize_ = 0;
    /// Ticked ids that the tree does not hold; they have no size.
    std::set<Identifier> unknown_;
};

}
