#include "MadeNodes.h"

#include <ArborviewKit/SelectionModel.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tolvane {
namespace {

using enum SelectionState;

/// The same by recursion over the tree, without a thought of speed.
struct PlainSelection {
    SelectionState state(const FileNode& node) const {
        if (ticked.contains(node.id())) {
            return all;
        }
        std::set<SelectionState> states;
        for (const FileNode& child : node.children()) {
            states.insert(state(child));
        }
        return states.empty() ? none : states.size() == 1 ? *states.begin() : partial;
    }

    void set(const FileNode& node, bool isTicked) {
        for (const FileNode& each : node.flattened()) {
            ticked.erase(each.id());
            if (isTicked) {
                ticked.insert(each.id());
            }
        }
    }

    /// Whether the id was found in `node` or below.
    bool toggle(const FileNode& node, const Identifier& id) {
        if (node.id() == id) {
            set(node, state(node) != all);
            return true;
        }
        const bool isBelow = std::ranges::any_of(
            node.children(), [&](const FileNode& child) { return toggle(child, id); });
        if (isBelow && state(node) == all) {
            ticked.insert(node.id());
        }
        return isBelow;
    }

    std::set<Identifier> ticked;
};

/// Compares what is told of `node` and all below; adds what is to be selected there.
void compare(const SelectionModel& model, const PlainSelection& plain, const FileNode& node,
             bool isParentTicked, bool isAnyAboveTicked, Bytes& size,
             std::vector<Identifier>& topLevel) {
    const bool isTicked = plain.ticked.contains(node.id());
    ASSERT_EQ(model.isSelected(node.id()), isTicked);
    ASSERT_EQ(model.state(node.id()), plain.state(node));
    size += isTicked && !isParentTicked ? node.totalAllocatedSize() : 0;
    if (isTicked && !isAnyAboveTicked) {
        topLevel.push_back(node.id());
    }
    for (const FileNode& child : node.children()) {
        compare(model, plain, child, isTicked, isTicked || isAnyAboveTicked, size, topLevel);
    }
}

void expectSame(const SelectionModel& model, const PlainSelection& plain, const FileNode& root) {
    Bytes size = 0;
    std::vector<Identifier> topLevel;
    ASSERT_NO_FATAL_FAILURE(compare(model, plain, root, false, false, size, topLevel));
    ASSERT_EQ(model.selectedSize(), size);
    ASSERT_THAT(model.selectedIDs(), ::testing::UnorderedElementsAreArray(plain.ticked));
    const std::vector<FileNode> nodes = model.topLevel();
    ASSERT_TRUE(std::ranges::equal(nodes, topLevel, {}, &FileNode::id));
}

TEST(SelectionModel, agreesWithAPlainOneOverRandomToggles) {
    std::mt19937 random(2026);
    SelectionModel model;
    for (int tree = 0; tree < 60; ++tree) {
        const FileNode root = randomTree(random, 4);
        const std::vector<FileNode> nodes = root.flattened();
        const Identifier stranger = freshIdentifier();
        model.load(root);
        PlainSelection plain;
        for (int step = 0; step < 80; ++step) {
            const auto choice = random() % 40;
            const Identifier id = choice == 2 ? stranger : nodes[random() % nodes.size()].id();
            if (choice == 0) {
                model.clear();
                plain.ticked.clear();
            } else if (choice == 1) {
                model.selectAll();
                plain.set(root, true);
            } else {
                model.toggle(id);
                if (!plain.toggle(root, id) && plain.ticked.erase(id) == 0) {
                    plain.ticked.insert(id);
                }
            }
            ASSERT_NO_FATAL_FAILURE(expectSame(model, plain, root))
                << "tree " << tree << ", step " << step;
        }
    }
}

TEST(SelectionModel, keepsAFolderWhoseChildIsDeselected) {
    const FileNode file = madeFile("a", 100);
    const FileNode folder = madeFolder("folder", {file, madeFile("b", 20)}, 1000);
    SelectionModel model;
    model.selectAll();
    EXPECT_TRUE(model.selectedIDs().empty()) << "without a tree";
    model.load(madeFolder("root", {folder, madeFile("c", 3)}));
    model.toggle(folder.id());
    model.toggle(file.id());
    EXPECT_EQ(model.state(file.id()), none);
    EXPECT_EQ(model.state(folder.id()), all);
    EXPECT_EQ(model.selectedSize(), 1120) << "hidden bytes included, once";
}

}
}
