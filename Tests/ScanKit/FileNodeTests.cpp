#include <ScanKit/FileNode.h>

#include <gtest/gtest.h>

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

TEST(FileNode, keepsEveryFieldItWasMadeWith) {
    const FileNode node(FileURL("/a/b"), "another name", Kind::symlink, 4096, 11, true, 12.25,
                        {file("/a/b/c", 10)}, 7, 8, 9, true);
    EXPECT_EQ(node.url().path(), "/a/b");
    EXPECT_EQ(node.name(), "another name");
    EXPECT_EQ(node.kind(), Kind::symlink);
    EXPECT_EQ(node.allocatedSize(), 4096);
    EXPECT_EQ(node.logicalSize(), 11);
    EXPECT_TRUE(node.isPurgeable());
    EXPECT_EQ(node.modified(), 12.25);
    EXPECT_EQ(node.hiddenBytes(), 7);
    EXPECT_EQ(node.hiddenFiles(), 8);
    EXPECT_EQ(node.hiddenDirectories(), 9);
    EXPECT_TRUE(node.truncated());
    ASSERT_EQ(node.children().size(), 1U);
    EXPECT_EQ(node.children().front().url().path(), "/a/b/c");
    EXPECT_NE(node.id(), node.children().front().id());
    EXPECT_FALSE(folder("/", {}).modified().has_value());
}

TEST(FileNode, addsListedAndHiddenItemsUp) {
    const FileNode empty = folder("/e", {});
    EXPECT_EQ(empty.totalAllocatedSize(), 0);
    EXPECT_EQ(empty.fileCount(), 0);
    EXPECT_EQ(empty.directoryCount(), 1);
    EXPECT_EQ(empty.leavesCount(), 0);

    const FileNode node =
        folder("/d", {folder("/d/e", {}, 30, 2, 4), file("/d/f", 100, true)}, 5000, 3);
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
}

TEST(FileNode, flattensInPreOrder) {
    const FileNode root = folder("/r", {folder("/r/a", {file("/r/a/x", 1)}), file("/r/b", 1)});
    std::vector<std::string> paths;
    for (const FileNode& node : root.flattened()) {
        paths.push_back(node.url().path());
    }
    EXPECT_EQ(paths, (std::vector<std::string>{"/r", "/r/a", "/r/a/x", "/r/b"}));
}

TEST(FileNode, changesChildrenOnlyInACopy) {
    const FileNode before = folder("/r", {file("/r/a", 1), file("/r/b", 2)}, 10, 1, 0);
    const FileNode after = before.settingChildren({file("/r/a", 5)});
    EXPECT_EQ(before.totalAllocatedSize(), 13);
    EXPECT_EQ(after.totalAllocatedSize(), 15);
    EXPECT_EQ(after.id(), before.id());
    EXPECT_EQ(after.hiddenFiles(), 1);
}

TEST(FileNode, knowsItsKindByText) {
    for (const Kind kind : {Kind::directory, Kind::regular, Kind::symlink, Kind::other}) {
        EXPECT_EQ(fileNodeKind(rawValue(kind)), kind);
    }
    EXPECT_FALSE(fileNodeKind("Directory").has_value());
    EXPECT_FALSE(fileNodeKind("").has_value());
}

TEST(FileNodeDeathTest, stopsRatherThanWrapsASum) {
    const FileNode root = folder("/r", {file("/r/a", INT64_MAX), file("/r/b", 1)});
    EXPECT_DEATH(static_cast<void>(root.totalAllocatedSize()), "does not fit into 64 bits");
}

}
}
