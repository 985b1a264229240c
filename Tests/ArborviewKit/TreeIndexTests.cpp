#include "MadeNodes.h"

#include <ArborviewKit/ScannedTree.h>

#include <gtest/gtest.h>

namespace tolvane {
namespace {

TEST(TreeIndex, tellsOfEveryNodeWhatTheTreeSays) {
    std::mt19937 random(11);
    for (int round = 0; round < 20; ++round) {
        const auto tree = ScannedTree::of(randomTree(random, 5));
        const TreeIndex& index = tree->index();
        const std::vector<FileNode> nodes = tree->root().flattened();
        ASSERT_EQ(index.count(), nodes.size());
        EXPECT_EQ(index.parent(0), TreeIndex::nowhere);
        for (TreeIndex::Position i = 0; i < index.count(); ++i) {
            EXPECT_EQ(index.node(i).id(), nodes[i].id());
            EXPECT_EQ(index.find(nodes[i].id()), i);
            EXPECT_EQ(tree->find(nodes[i].id()), &index.node(i));
            EXPECT_EQ(index.totalAllocatedSize(i), nodes[i].totalAllocatedSize());
            EXPECT_EQ(index.end(i) - i, nodes[i].flattened().size());
            TreeIndex::Position position = i + 1;
            for (const FileNode& child : nodes[i].children()) {
                EXPECT_EQ(index.node(position).id(), child.id());
                EXPECT_EQ(index.parent(position), i);
                position = index.end(position);
            }
        }
        EXPECT_EQ(tree->find(freshIdentifier()), nullptr);
    }
    EXPECT_EQ(TreeIndex().count(), 0U);
    EXPECT_FALSE(TreeIndex().find(freshIdentifier()).has_value());
}

TEST(TreeIndexDeathTest, stopsRatherThanWrapsASize) {
    const FileNode root = madeFolder("r", {madeFile("a", INT64_MAX), madeFile("b", 1)});
    EXPECT_DEATH(ScannedTree::of(root), "does not fit into 64 bits");
}

}
}
