#include <ArborviewKit/SelectionModel.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tolvane {

void SelectionModel::load(FileNode root) {
    load(ScannedTree::of(std::move(root)));
}

void SelectionModel::load(std::shared_ptr<const ScannedTree> tree) {
    tree_ = std::move(tree);
    const std::size_t count = tree_ ? index().count() : 0;
    ticked_ = Bitmap(count);
    tickedChildren_.assign(count, 0);
    selectedSize_ = 0;
    unknown_.clear();
}

bool SelectionModel::isSelected(const Identifier& id) const {
    const std::optional<Position> position = tree_ ? index().find(id) : std::nullopt;
    return position ? ticked_[*position] : unknown_.contains(id);
}

SelectionState SelectionModel::state(const Identifier& id) const {
    if (isSelected(id)) {
        return SelectionState::all;
    }
    const std::optional<Position> position = tree_ ? index().find(id) : std::nullopt;
    const bool hasTickedBelow = position && ticked_.nextSet(*position) < index().end(*position);
    return hasTickedBelow ? SelectionState::partial : SelectionState::none;
}

void SelectionModel::toggle(const Identifier& id) {
    const std::optional<Position> position = tree_ ? index().find(id) : std::nullopt;
    if (position) {
        setSubtree(*position, !ticked_[*position]);
        propagateUp(*position);
    } else if (unknown_.erase(id) == 0) {
        unknown_.insert(id);
    }
}

void SelectionModel::selectAll() {
    if (tree_) {
        setSubtree(0, true);
    }
}

void SelectionModel::clear() {
    ticked_ = Bitmap(ticked_.count());
    std::fill(tickedChildren_.begin(), tickedChildren_.end(), 0U);
    selectedSize_ = 0;
    unknown_.clear();
}

std::vector<Identifier> SelectionModel::selectedIDs() const {
    std::vector<Identifier> ids(unknown_.begin(), unknown_.end());
    for (std::size_t next = ticked_.nextSet(0); next < ticked_.count();
         next = ticked_.nextSet(next + 1)) {
        ids.push_back(index().node(static_cast<Position>(next)).id());
    }
    return ids;
}

std::vector<FileNode> SelectionModel::topLevel() const {
    std::vector<FileNode> nodes;
    std::size_t next = ticked_.nextSet(0);
    while (next < ticked_.count()) {
        const auto position = static_cast<Position>(next);
        nodes.push_back(index().node(position));
        next = ticked_.nextSet(index().end(position));
    }
    return nodes;
}

std::size_t SelectionModel::topLevelCount() const {
    std::size_t count = 0;
    for (std::size_t next = ticked_.nextSet(0); next < ticked_.count(); ++count) {
        next = ticked_.nextSet(index().end(static_cast<Position>(next)));
    }
    return count;
}

void SelectionModel::setSubtree(Position position, bool isTicked) {
    const Position end = index().end(position);
    selectedSize_ = difference(selectedSize_, tickedSize(position));
    if (ticked_[position] != isTicked) {
        countAtParent(position, isTicked ? 1 : -1);
    }
    ticked_.fill(position, end, isTicked);
    const auto counts = tickedChildren_.begin();
    if (isTicked) {
        const auto all = index().childCounts().begin();
        std::copy(all + position, all + end, counts + position);
        add(selectedSize_, countedSize(position));
    } else {
        std::fill(counts + position, counts + end, 0U);
    }
}

void SelectionModel::propagateUp(Position position) {
    Position ancestor = index().parent(position);
    while (ancestor != TreeIndex::nowhere && !ticked_[ancestor] &&
           tickedChildren_[ancestor] == index().childCounts()[ancestor]) {
        selectedSize_ = difference(selectedSize_, index().sizeOfChildren(ancestor));
        ticked_.set(ancestor);
        add(selectedSize_, countedSize(ancestor));
        countAtParent(ancestor, 1);
        ancestor = index().parent(ancestor);
    }
}

void SelectionModel::countAtParent(Position position, int change) {
    const Position parent = index().parent(position);
    if (parent != TreeIndex::nowhere) {
        tickedChildren_[parent] += static_cast<std::uint32_t>(change);
    }
}

Bytes SelectionModel::countedSize(Position position) const {
    const Position parent = index().parent(position);
    const bool isCountedAbove = parent != TreeIndex::nowhere && ticked_[parent];
    return isCountedAbove ? 0 : index().totalAllocatedSize(position);
}

Bytes SelectionModel::tickedSize(Position top) const {
    if (top == 0) {
        return selectedSize_;
    }
    Bytes total = 0;
    std::size_t clear = 0;
    std::size_t next = ticked_.nextSet(top);
    while (next < index().end(top)) {
        const auto position = static_cast<Position>(next);
        add(total, countedSize(position));
        if (clear <= next) {
            clear = ticked_.nextClear(next);
        }
        const std::size_t end = index().end(position);
        const bool isWhollyTicked = end <= clear;
        next = ticked_.nextSet(isWhollyTicked ? end : next + 1);
    }
    return total;
}

}
