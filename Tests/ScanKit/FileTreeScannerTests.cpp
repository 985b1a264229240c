#include <HostKit/HostLayout.h>
#include <ScanKit/FileTreeScanner.h>
#include <Support/SyntheticFiles.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

namespace tolvane {
namespace {

using ::testing::ElementsAre;
using Item = SyntheticItem;
using Case = ScanOutcome::Case;

struct Scanned {
    ScanOutcome outcome;
    std::vector<ScanFailure> failures;
    std::vector<ScanProgress> progress;
};

Scanned scan(Item root, const ScanOptions& options, const std::function<bool()>& isCancelled = {},
             const std::string& path = "/r") {
    FileTreeScanner scanner(options, std::make_shared<SyntheticFiles>(path, std::move(root)));
    std::vector<ScanProgress> reports;
    ScanOutcome outcome = scanner.scan(
        FileURL(path), [&](const ScanProgress& progress) { reports.push_back(progress); },
        isCancelled);
    return {std::move(outcome), scanner.lastFailures(), std::move(reports)};
}

std::vector<std::string> names(const FileNode& node) {
    std::vector<std::string> list;
    for (const FileNode& child : node.children()) {
        list.emplace_back(child.name());
    }
    return list;
}

const FileNode& child(const FileNode& node, std::string_view name) {
    const auto found = std::ranges::find(node.children(), name, &FileNode::name);
    EXPECT_NE(found, node.children().end()) << name;
    return *found;
}

TEST(FileTreeScanner, namesTheRootOfTheFileSystemByItsPath) {
    const Scanned scanned = scan(Item::folder("", {Item::folder("a", {Item::file("f", 1)})}),
                                 fullScanOptions({}), {}, "/");
    EXPECT_EQ(scanned.outcome.root.name(), "/");
    EXPECT_EQ(scanned.outcome.root.children().front().children().front().url().path(), "/a/f");
}

TEST(FileTreeScanner, countsAHardLinkOnceWhereAsked) {
    Item tree = Item::folder("r", {Item::file("first", 4096, 100), Item::file("second", 4096, 100),
                                   Item::file("other", 4096, 100), Item::file("unknown", 1)});
    tree.children[0].values.identity = tree.children[1].values.identity = FileIdentity{7, 42};
    tree.children[2].values.identity = FileIdentity{8, 42};
    ScanOptions options = fullScanOptions({});
    EXPECT_EQ(scan(tree, options).outcome.root.totalAllocatedSize(), 3 * 4096 + 1);
    options.deduplicatesHardlinks = true;
    const Scanned once = scan(tree, options);
    EXPECT_EQ(once.outcome.root.totalAllocatedSize(), 2 * 4096 + 1);
    EXPECT_EQ(child(once.outcome.root, "second").logicalSize(), 0);
    EXPECT_EQ(once.outcome.root.fileCount(), 4);
    EXPECT_EQ(once.progress.back().filesScanned, 3);
}

TEST(FileTreeScanner, leavesOutMarkersHiddenAndExcludedItems) {
    const Item tree = Item::folder(
        "r", {Item::file(".nofollow", 1), Item::folder("keep", {Item::folder(".nofollow")}),
              Item::file(".hidden", 2), Item::folder("Volumes", {Item::file("v", 4)}),
              Item::folder("VolumesX", {Item::folder("deep", {Item::file("w", 8)})})});
    ScanOptions options = fullScanOptions({"/r/Volumes", "/r/VolumesX/deep", "/elsewhere"});
    EXPECT_EQ(scan(tree, options).outcome.root.totalAllocatedSize(), 2);
    EXPECT_TRUE(child(scan(tree, options).outcome.root, "keep").children().empty());
    options.excludesNoFollowMarker = false;
    EXPECT_EQ(scan(tree, options).outcome.root.totalAllocatedSize(), 3);
    options.skipsHiddenFiles = true;
    options.excludedPathPrefixes.clear();
    EXPECT_EQ(scan(tree, options).outcome.root.totalAllocatedSize(), 12);
    options.excludedPathPrefixes = {"/", "r", "/r/", "/r//Volumes"};
    EXPECT_EQ(scan(tree, options).outcome.root.totalAllocatedSize(), 12) << "no path begins so";
    options.excludedPathPrefixes = {"/r"};
    EXPECT_TRUE(scan(tree, options).outcome.root.children().empty()) << "only the root is exempt";
}

TEST(FileTreeScanner, takesLinksForLeavesUnlessAskedToFollow) {
    const Item tree =
        Item::folder("r", {Item::link("l", "/r/d", 4), Item::folder("d", {Item::file("f", 100)}),
                           Item::link("broken", "/r/none", 3)});
    const FileNode leaf = scan(tree, fullScanOptions({})).outcome.root;
    EXPECT_EQ(child(leaf, "l").kind(), FileNode::Kind::symlink);
    EXPECT_EQ(child(leaf, "l").logicalSize(), 4);
    EXPECT_EQ(leaf.totalAllocatedSize(), 100);

    ScanOptions options = fullScanOptions({});
    options.followsSymlinks = true;
    const Scanned followed = scan(tree, options);
    const FileNode& target = followed.outcome.root.children().front();
    EXPECT_EQ(target.url().path(), "/r/d");
    EXPECT_EQ(target.children().front().url().path(), "/r/d/f");
    EXPECT_EQ(followed.outcome.root.totalAllocatedSize(), 200);
    EXPECT_THAT(followed.failures,
                ElementsAre(ScanFailure{"/r/none", SystemError{ENOENT}.message()}));
    options.maxDepth = 1;
    EXPECT_EQ(child(scan(tree, options).outcome.root, "l").kind(), FileNode::Kind::symlink);
}

TEST(FileTreeScanner, passesAttributesOnAndFallsBackWhereTheyAreAbsent) {
    Item tree = Item::folder("r", {Item::file("odd", 0), Item::file("device", 1),
                                   Item::folder("folder", {Item::file("cached", 10)}),
                                   Item::folder("untold", {Item::file("f", 5)})});
    tree.values.contentModificationDate = 7;
    tree.children[0].values = {};
    tree.children[0].values.fileSize = 77;
    tree.children[1].values.fileResourceType = FileType::other;
    tree.children[2].values.isPurgeable = true;
    tree.children[2].values.contentModificationDate = 12.5;
    tree.children[2].children[0].values.isPurgeable = true;
    tree.children[3].values = {};
    tree.children[3].values.fileResourceType = FileType::directory;
    const FileNode root = scan(tree, fullScanOptions({})).outcome.root;
    EXPECT_FALSE(root.isPurgeable());
    EXPECT_EQ(root.modified(), 7);
    EXPECT_EQ(root.totalPurgeableSize(), 10);
    EXPECT_TRUE(child(root, "folder").isPurgeable());
    EXPECT_EQ(child(root, "folder").modified(), 12.5);
    EXPECT_EQ(child(root, "odd").kind(), FileNode::Kind::other);
    EXPECT_EQ(child(root, "odd").allocatedSize(), 77);
    EXPECT_FALSE(child(root, "odd").modified().has_value());
    EXPECT_FALSE(child(root, "odd").isPurgeable());
    EXPECT_EQ(child(root, "device").kind(), FileNode::Kind::other);
    EXPECT_TRUE(child(root, "untold").isDirectory());
    EXPECT_EQ(root.totalAllocatedSize(), 93);
}

TEST(FileTreeScanner, recordsWhatItCannotReadAndGoesOn) {
    for (const int code : {EMFILE, EIO, EACCES, EPERM, ENOENT}) {
        Item tree =
            Item::folder("r", {Item::folder("refused", {Item::file("f", 1)}), Item::file("gone", 1),
                               Item::folder("a", {Item::folder("broken")}), Item::file("f", 3)});
        tree.children[0].listingError = SystemError{code};
        tree.children[1].valuesError = SystemError{code};
        tree.children[2].children[0].listingError = SystemError{code};
        const Scanned scanned = scan(tree, fullScanOptions({}));
        const std::string reason = code == EACCES || code == EPERM ? "Operation not permitted"
                                                                   : SystemError{code}.message();
        EXPECT_THAT(scanned.failures,
                    ElementsAre(ScanFailure{"/r/refused", reason},
                                ScanFailure{"/r/gone", "unreadable resource values"},
                                ScanFailure{"/r/a/broken", reason}));
        EXPECT_THAT(names(scanned.outcome.root), ElementsAre("refused", "a", "f"));
        EXPECT_EQ(scanned.outcome.root.totalAllocatedSize(), 3);
        EXPECT_EQ(scanned.outcome.root.directoryCount(), 4);

        const Scanned none = scan(tree.children[0], fullScanOptions({}));
        EXPECT_EQ(none.outcome.outcome, Case::completed);
        EXPECT_EQ(none.failures.size(), 1U);
        EXPECT_EQ(none.outcome.root.directoryCount(), 1);
    }
}

TEST(FileTreeScanner, reportsEveryFolderAndEveryIntervalthItem) {
    std::vector<Item> files;
    for (int number = 0; number < 7; ++number) {
        files.push_back(Item::file(std::to_string(number), 10));
    }
    ScanOptions options = fullScanOptions({});
    options.progressInterval = 3;
    std::vector<std::string> paths;
    for (const ScanProgress& report : scan(Item::folder("r", files), options).progress) {
        paths.push_back(report.currentPath);
    }
    EXPECT_THAT(paths, ElementsAre("/r/1", "/r/4", "/r"));
    options.progressInterval = -1;
    EXPECT_EQ(scan(Item::folder("r", files), options).progress.size(), 8U);
}

TEST(FileTreeScanner, stopsWhereItIsCancelledWithConsistentTotals) {
    const Item tree = Item::folder(
        "r", {Item::file("a", 1), Item::folder("d", {Item::file("b", 2), Item::file("c", 4)}),
              Item::file("e", 8)});
    int questions = 0;
    const Scanned scanned = scan(tree, fullScanOptions({}), [&] { return ++questions == 4; });
    EXPECT_EQ(scanned.outcome.outcome, Case::cancelled);
    EXPECT_EQ(scanned.outcome.root.totalAllocatedSize(), 3);
    EXPECT_EQ(questions, 4) << "not asked again once it said yes";
    EXPECT_EQ(scanned.progress.size(), 2U) << "folders that were cut short are reported too";

    std::vector<Item> many(10'000, Item::file("f", 1));
    const Scanned listing = scan(Item::folder("r", many), fullScanOptions({}), [] { return true; });
    EXPECT_EQ(listing.outcome.outcome, Case::cancelled);
    EXPECT_TRUE(listing.failures.empty()) << "a listing that was stopped did not fail";
    EXPECT_TRUE(listing.outcome.root.children().empty());
}

TEST(FileTreeScanner, startsAfreshWithEveryScan) {
    Item tree = Item::folder("r", {Item::folder("refused"), Item::file("a", 1)});
    tree.children[0].listingError = SystemError{EACCES};
    ScanOptions options = fullScanOptions({});
    options.maxRetainedNodes = 1;
    FileTreeScanner scanner(options, std::make_shared<SyntheticFiles>("/r", tree));
    const Identifier first = scanner.scan(FileURL("/r")).root.id();
    const FileNode second = scanner.scan(FileURL("/r")).root;
    EXPECT_EQ(scanner.lastFailures().size(), 1U);
    EXPECT_EQ(second.children().size(), 2U);
    EXPECT_NE(second.id(), first);
}

TEST(FileTreeScanner, measuresRealFilesByTheirBlocks) {
    const TemporaryHome home;
    home.write("d/data", std::string(5000, 'x'));
    home.write("d/sparse");
    std::filesystem::resize_file(home.path("d/sparse"), 50'000'000);
    home.makeLink("d/link", "data");
    home.write("d/bad \xff name", "x");
    FileTreeScanner scanner(fullScanOptions({}), systemFileManager(HostLayout{}));
    const FileNode root = scanner.scan(home.url()).root;
    const FileNode& folder = root.children().front();
    EXPECT_EQ(child(folder, "data").allocatedSize(), 8192);
    EXPECT_EQ(child(folder, "data").logicalSize(), 5000);
    EXPECT_EQ(child(folder, "sparse").allocatedSize(), 0);
    EXPECT_EQ(child(folder, "sparse").logicalSize(), 50'000'000);
    EXPECT_EQ(child(folder, "link").kind(), FileNode::Kind::symlink);
    EXPECT_EQ(child(folder, "link").logicalSize(), 4);
    EXPECT_EQ(child(folder, "bad \xff name").url(), home.url("d/bad \xff name"));
    EXPECT_NEAR(child(folder, "data").modified().value(), now(), 60);
}

}
}
