#include <ScanKit/FileNode.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace tolvane {
namespace {

using Kind = FileNode::Kind;

FileNode file(const std::string& path, Bytes size, bool isPurgeable = false) {
    const FileURL url(path);
    return FileNode(url, url.lastPathComponent(), Kind::regular, size, size / 2, isPurgeable,
                    1000.5, {}, 0, 0, 0, false);
}

FileNode folder(const std::string& path, std::vector<FileNode> children, Bytes hiddenBytes = 0,
                std::int64_t hiddenFiles = 0, std::int64_t hiddenDirectories = 0) {
    const FileURL url(path);
    return FileNode(url, url.lastPathComponent(), Kind::directory, 0, 0, true, std::nullopt,
                    std::move(children), hiddenBytes, hiddenFiles, hiddenDirectories, true);
}

TEST(FileNode, keepsAllButItsChildrenWhenTheyChange) {
    const FileNode node = folder("/a/b", {file("/a/b/c", 10)}, 7, 8, 9);
    const FileNode changed = node.settingChildren({file("/a/b/c", 5)});
    EXPECT_EQ(node.totalAllocatedSize(), 17);
    EXPECT_EQ(changed.totalAllocatedSize(), 12);
    EXPECT_EQ(changed.id(), node.id());
    EXPECT_EQ(changed.hiddenFiles(), 8);
    EXPECT_EQ(changed.hiddenDirectories(), 9);
    EXPECT_NE(node.id(), node.children().front().id());
}

TEST(FileNode, addsListedAndHiddenItemsUp) {
    const FileNode empty = folder("/d/e", {}, 30, 2, 4);
    EXPECT_EQ(empty.leavesCount(), 0);
    const FileNode node = folder("/d", {empty, file("/d/f", 100, true)}, 5000, 3);
    EXPECT_EQ(node.totalAllocatedSize(), 5130);
    EXPECT_EQ(node.totalLogicalSize(), 50) << "hidden bytes are no content length";
    EXPECT_EQ(node.totalPurgeableSize(), 100) << "a purgeable folder adds nothing of its own";
    EXPECT_EQ(node.fileCount(), 6);
    EXPECT_EQ(node.directoryCount(), 6);
    EXPECT_EQ(node.leavesCount(), 1);
    EXPECT_EQ(node.listedFileCount(), 1);
    EXPECT_EQ(node.listedDirectoryCount(), 2);
    EXPECT_EQ(node.notListedFileCount(), 5);
    EXPECT_EQ(node.notListedDirectoryCount(), 4);
    const std::vector<FileNode> nodes = node.flattened();
    EXPECT_TRUE(std::ranges::equal(nodes, std::vector{"/d", "/d/e", "/d/f"}, {},
                                   [](const FileNode& each) { return each.url().path(); }));
}

TEST(FileNode, knowsItsKindByText) {
    EXPECT_EQ(rawValue(Kind::symlink), "symlink");
    for (const Kind kind : {Kind::directory, Kind::regular, Kind::symlink, Kind::other}) {
        EXPECT_EQ(fileNodeKind(rawValue(kind)), kind);
    }
    EXPECT_FALSE(fileNodeKind("Directory").has_value());
}

TEST(FileNodeDeathTest, stopsRatherThanWrapsASum) {
    const FileNode root = folder("/r", {file("/r/a", INT64_MAX), file("/r/b", 1)});
    EXPECT_DEATH(static_cast<void>(root.totalAllocatedSize()), "does not fit into 64 bits");
}

}
}
