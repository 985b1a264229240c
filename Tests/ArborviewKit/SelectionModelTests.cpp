#include "MadeNodes.h"

#include <ArborviewKit/SelectionModel.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace tolvane {
namespace {

using enum SelectionState;

/// The same by sets, maps and recursion, without a thought of speed.
class PlainSelection {
  public:
    void load(const FileNode& root) {
        selected_.clear();
        sizes_.clear();
        parents_.clear();
        children_.clear();
        rootID_ = root.id();
        index(root, std::nullopt);
    }

    SelectionState state(const Identifier& id) const {
        if (selected_.contains(id)) {
            return all;
        }
        const auto found = children_.find(id);
        if (found == children_.end() || found->second.empty()) {
            return none;
        }
        std::set<SelectionState> states;
        for (const Identifier& child : found->second) {
            states.insert(state(child));
        }
        return states.size() == 1 ? *states.begin() : partial;
    }

    void toggle(const Identifier& id) {
        setSubtree(id, state(id) != all);
        for (auto parent = parents_.find(id); parent != parents_.end();
             parent = parents_.find(parent->second)) {
            if (state(parent->second) == all) {
                selected_.insert(parent->second);
            } else {
                selected_.erase(parent->second);
            }
        }
    }

    void selectAll() {
        if (rootID_) {
            setSubtree(*rootID_, true);
        }
    }

    void clear() { selected_.clear(); }

    Bytes selectedSize() const {
        Bytes total = 0;
        for (const Identifier& id : selected_) {
            const auto parent = parents_.find(id);
            const auto size = sizes_.find(id);
            if (size != sizes_.end() &&
                (parent == parents_.end() || !selected_.contains(parent->second))) {
                total += size->second;
            }
        }
        return total;
    }

    bool hasSelectedAncestor(Identifier id) const {
        for (auto parent = parents_.find(id); parent != parents_.end();
             parent = parents_.find(id)) {
            id = parent->second;
            if (selected_.contains(id)) {
                return true;
            }
        }
        return false;
    }

    const std::set<Identifier>& selectedIDs() const { return selected_; }

  private:
    void index(const FileNode& node, std::optional<Identifier> parent) {
        sizes_[node.id()] = node.totalAllocatedSize();
        if (parent) {
            parents_[node.id()] = *parent;
        }
        children_[node.id()] = {};
        for (const FileNode& child : node.children()) {
            children_[node.id()].push_back(child.id());
            index(child, node.id());
        }
    }

    void setSubtree(const Identifier& id, bool isSelected) {
        if (isSelected) {
            selected_.insert(id);
        } else {
            selected_.erase(id);
        }
        const auto found = children_.find(id);
        if (found != children_.end()) {
            for (const Identifier& child : found->second) {
                setSubtree(child, isSelected);
            }
        }
    }

    std::set<Identifier> selected_;
    std::map<Identifier, Bytes> sizes_;
    std::map<Identifier, Identifier> parents_;
    std::map<Identifier, std::vector<Identifier>> children_;
    std::optional<Identifier> rootID_;
};

void expectSame(const SelectionModel& model, const PlainSelection& plain,
                const std::vector<FileNode>& nodes) {
    std::vector<Identifier> topmost;
    for (const FileNode& node : nodes) {
        const bool isSelected = plain.selectedIDs().contains(node.id());
        ASSERT_EQ(model.isSelected(node.id()), isSelected);
        ASSERT_EQ(model.state(node.id()), plain.state(node.id()));
        if (isSelected && !plain.hasSelectedAncestor(node.id())) {
            topmost.push_back(node.id());
        }
    }
    ASSERT_EQ(model.selectedSize(), plain.selectedSize());
    ASSERT_THAT(model.selectedIDs(), ::testing::UnorderedElementsAreArray(plain.selectedIDs()));
    std::vector<Identifier> topLevel;
    for (const FileNode& node : model.topLevel()) {
        topLevel.push_back(node.id());
    }
    ASSERT_EQ(topLevel, topmost);
}

TEST(SelectionModel, agreesWithAPlainOneOverRandomToggles) {
    std::mt19937 random(2026);
    SelectionModel model;
    PlainSelection plain;
    for (int tree = 0; tree < 60; ++tree) {
        const FileNode root = randomTree(random, 4);
        const std::vector<FileNode> nodes = root.flattened();
        const Identifier stranger = freshIdentifier();
        model.load(root);
        plain.load(root);
        for (int step = 0; step < 80; ++step) {
            const auto choice = random() % 40;
            if (choice == 0) {
                model.clear();
                plain.clear();
            } else if (choice == 1) {
                model.selectAll();
                plain.selectAll();
            } else {
                const Identifier id = choice == 2 ? stranger : nodes[random() % nodes.size()].id();
                model.toggle(id);
                plain.toggle(id);
            }
            ASSERT_NO_FATAL_FAILURE(expectSame(model, plain, nodes))
                << "tree " << tree << ", step " << step;
        }
    }
}

/// root [ folder [ a, b ], c ]
class SmallSelection : public ::testing::Test {
  protected:
    SmallSelection() { model.load(root); }

    const FileNode a = madeFile("a", 100);
    const FileNode b = madeFile("b", 20);
    const FileNode c = madeFile("c", 3);
    const FileNode folder = madeFolder("folder", {a, b}, 1000);
    const FileNode root = madeFolder("root", {folder, c});
    SelectionModel model;
};

TEST_F(SmallSelection, aFolderJoinsWithItsLastChild) {
    model.toggle(a.id());
    EXPECT_EQ(model.state(folder.id()), partial);
    EXPECT_EQ(model.state(root.id()), partial);
    EXPECT_EQ(model.selectedSize(), 100);
    model.toggle(b.id());
    EXPECT_EQ(model.state(folder.id()), all);
    EXPECT_TRUE(model.isSelected(folder.id()));
    EXPECT_EQ(model.selectedSize(), 1120) << "the folder's size, hidden bytes included, once";
    EXPECT_EQ(model.state(root.id()), partial);
}

TEST_F(SmallSelection, aPartialFolderIsSelectedWhole) {
    model.toggle(a.id());
    model.toggle(folder.id());
    EXPECT_TRUE(model.isSelected(b.id()));
    EXPECT_EQ(model.selectedIDs().size(), 3U);
    model.toggle(folder.id());
    EXPECT_TRUE(model.selectedIDs().empty());
}

TEST_F(SmallSelection, aSelectedFolderStaysWhenAChildIsDeselected) {
    model.toggle(folder.id());
    model.toggle(a.id());
    EXPECT_FALSE(model.isSelected(a.id()));
    EXPECT_EQ(model.state(folder.id()), all);
    EXPECT_EQ(model.selectedSize(), 1120);
    ASSERT_EQ(model.topLevel().size(), 1U);
    EXPECT_EQ(model.topLevel().front().id(), folder.id());
}

TEST_F(SmallSelection, loadingStartsAnew) {
    model.selectAll();
    EXPECT_EQ(model.selectedSize(), 1123);
    model.clear();
    EXPECT_EQ(model.selectedSize(), 0);
    model.toggle(c.id());
    model.load(folder);
    EXPECT_TRUE(model.selectedIDs().empty());
    EXPECT_EQ(model.state(c.id()), none);
    model.toggle(b.id());
    EXPECT_EQ(model.selectedSize(), 20);
}

TEST(SelectionModel, withoutATreeHasNothingToSelect) {
    SelectionModel model;
    model.selectAll();
    EXPECT_EQ(model.selectedSize(), 0);
    EXPECT_TRUE(model.selectedIDs().empty());
    EXPECT_EQ(model.state(freshIdentifier()), none);
}

}
}
