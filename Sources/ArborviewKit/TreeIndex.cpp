#include <ArborviewKit/TreeIndex.h>
#include <ScanKit/FileNode.h>

#include <boost/sort/spreadsort/integer_sort.hpp>

#include <algorithm>
#include <cstring>

namespace tolvane {
namespace {

Bytes ownSize(const FileNode& node) {
    return sum(node.allocatedSize(), node.hiddenBytes());
}

/// The random bits that an id begins with: enough to tell nearly all apart without the id.
std::uint64_t leadingBits(const Identifier& id) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, id.data, sizeof bits);
    return bits;
}

bool precedes(const Identifier& a, const Identifier& b) {
    const std::uint64_t leadingA = leadingBits(a);
    const std::uint64_t leadingB = leadingBits(b);
    return leadingA != leadingB ? leadingA < leadingB : a < b;
}

}

struct TreeIndex::Key {
    std::uint64_t leading = 0;
    Position position = 0;
};

TreeIndex::TreeIndex(const FileNode& root) {
    std::vector<Key> keys;
    append(root, nowhere, keys);
    sortByID(keys);
}

Bytes TreeIndex::append(const FileNode& node, Position parent, std::vector<Key>& keys) {
    const std::vector<FileNode>& children = node.children();
    const Position position = count();
    nodes_.push_back(&node);
    parents_.push_back(parent);
    childCounts_.push_back(static_cast<std::uint32_t>(children.size()));
    ends_.push_back(position + 1);
    sizes_.push_back(0);
    keys.push_back({leadingBits(node.id()), position});
    Bytes size = ownSize(node);
    for (const FileNode& child : children) {
        add(size, append(child, position, keys));
    }
    ends_[position] = count();
    sizes_[position] = size;
    return size;
}

void TreeIndex::sortByID(std::vector<Key>& keys) {
    const auto shiftedRight = [](const Key& key, unsigned bits) { return key.leading >> bits; };
    const auto precedesByID = [this](const Key& a, const Key& b) {
        return a.leading != b.leading ? a.leading < b.leading
                                      : nodes_[a.position]->id() < nodes_[b.position]->id();
    };
    boost::sort::spreadsort::integer_sort(keys.begin(), keys.end(), shiftedRight, precedesByID);
    byID_.reserve(keys.size());
    for (const Key& key : keys) {
        byID_.push_back(key.position);
    }
}

Bytes TreeIndex::sizeOfChildren(Position position) const {
    return difference(sizes_[position], ownSize(*nodes_[position]));
}

std::optional<TreeIndex::Position> TreeIndex::find(const Identifier& id) const {
    const auto found = std::lower_bound(byID_.begin(), byID_.end(), id,
                                        [this](Position position, const Identifier& wanted) {
                                            return precedes(nodes_[position]->id(), wanted);
                                        });
    if (found == byID_.end() || nodes_[*found]->id() != id) {
        return std::nullopt;
    }
    return *found;
}

}
