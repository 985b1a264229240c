#include <HostKit/HostLayout.h>
#include <ScanKit/FileTreeScanner.h>
#include <Support/SyntheticFiles.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>
#include <numeric>

namespace tolvane {
namespace {

using ::testing::ElementsAre;
using Item = SyntheticItem;
using Case = ScanOutcome::Case;

ScanOptions keepingEverything() {
    ScanOptions options = detailedScanOptions({});
    options.maxRetainedNodes = 1'000'000'000;
    return options;
}

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

TEST(FileTreeScanner, keepsFoldersFirstEachGroupInListingOrder) {
    const Scanned scanned = scan(Item::folder("r", {Item::file("b", 4096, 10), Item::folder("z"),
                                                    Item::file("a", 8192, 20), Item::folder("y")}),
                                 fullScanOptions({}));
    const FileNode& root = scanned.outcome.root;
    EXPECT_EQ(scanned.outcome.outcome, Case::completed);
    EXPECT_THAT(names(root), ElementsAre("z", "y", "b", "a"));
    EXPECT_EQ(root.name(), "r");
    EXPECT_EQ(root.totalAllocatedSize(), 12288);
    EXPECT_EQ(root.totalLogicalSize(), 30);
    EXPECT_EQ(child(root, "a").url().path(), "/r/a");
    EXPECT_FALSE(root.truncated());
    EXPECT_EQ(root.hiddenFiles(), 0);
}

TEST(FileTreeScanner, namesTheRootOfTheFileSystemByItsPath) {
    const Scanned scanned = scan(Item::folder("", {Item::folder("a", {Item::file("f", 1)})}),
                                 fullScanOptions({}), {}, "/");
    EXPECT_EQ(scanned.outcome.root.name(), "/");
    EXPECT_EQ(scanned.outcome.root.children().front().children().front().url().path(), "/a/f");
}

TEST(FileTreeScanner, keepsTheLargestFilesOfAFullFolderAndSaysNothingOfTruncation) {
    std::vector<Item> files;
    Bytes smallest = 0;
    for (Bytes number = 0; number < 40; ++number) {
        const Bytes size = 1 + (number * 7) % 40;
        smallest += size <= 8 ? size : 0;
        files.push_back(Item::file(std::to_string(number), size));
    }
    const FileNode root = scan(Item::folder("r", files), fullScanOptions({})).outcome.root;
    EXPECT_EQ(root.children().size(), 32U);
    EXPECT_EQ(root.hiddenFiles(), 8);
    EXPECT_EQ(root.hiddenBytes(), smallest);
    EXPECT_FALSE(root.truncated());
    EXPECT_TRUE(std::ranges::is_sorted(root.children(), {}, [](const FileNode& node) {
        return std::stoi(std::string(node.name()));
    })) << "the kept ones stay in listing order";
}

TEST(FileTreeScanner, letsTheEarliestOfEqualFilesGo) {
    ScanOptions options = fullScanOptions({});
    options.maxRetainedFilesPerDirectory = 2;
    const FileNode root = scan(Item::folder("r", {Item::file("a", 5), Item::file("b", 5),
                                                  Item::file("c", 5), Item::file("d", 4)}),
                               options)
                              .outcome.root;
    EXPECT_THAT(names(root), ElementsAre("b", "c"));
    EXPECT_EQ(root.hiddenBytes(), 9);
}

TEST(FileTreeScanner, spendsTheLargeAllowanceOnKeyFilesOnly) {
    ScanOptions options = fullScanOptions({});
    options.maxRetainedNodes = 0;
    options.maxRetainedLargeFiles = 1;
    options.keyFileSizeThreshold = 100;
    const FileNode root = scan(Item::folder("r", {Item::file("small", 99), Item::file("large", 100),
                                                  Item::file("larger", 200)}),
                               options)
                              .outcome.root;
    EXPECT_THAT(names(root), ElementsAre("large"));
    EXPECT_EQ(root.hiddenFiles(), 2);
    EXPECT_EQ(root.hiddenBytes(), 299);
    EXPECT_TRUE(root.truncated());
}

TEST(FileTreeScanner, foldsAFolderPastTheBudgetYetLeavesItsFilesSpent) {
    ScanOptions options = fullScanOptions({});
    options.maxRetainedDirectories = 1;
    options.maxRetainedNodes = 2;
    options.maxRetainedLargeFiles = 0;
    const FileNode root =
        scan(Item::folder("r", {Item::folder("d", {Item::file("x", 10), Item::folder("e")}),
                                Item::file("a", 1), Item::file("b", 2)}),
             options)
            .outcome.root;
    EXPECT_THAT(names(root), ElementsAre("a")) << "the folded folder used one of the two";
    EXPECT_EQ(root.hiddenBytes(), 12);
    EXPECT_EQ(root.hiddenFiles(), 2);
    EXPECT_EQ(root.hiddenDirectories(), 2);
    EXPECT_TRUE(root.truncated());
    EXPECT_EQ(root.directoryCount(), 3);
}

TEST(FileTreeScanner, countsAHardLinkOnceWhereAsked) {
    Item first = Item::file("first", 4096, 100);
    first.values.identity = FileIdentity{7, 42};
    Item second = Item::file("second", 4096, 100);
    second.values.identity = FileIdentity{7, 42};
    Item other = Item::file("other", 4096, 100);
    other.values.identity = FileIdentity{8, 42};
    const Item tree = Item::folder("r", {first, second, other, Item::file("unknown", 1)});

    EXPECT_EQ(scan(tree, fullScanOptions({})).outcome.root.totalAllocatedSize(), 3 * 4096 + 1);
    ScanOptions options = fullScanOptions({});
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
    options.skipsHiddenFiles = true;
    options.excludedPathPrefixes.clear();
    EXPECT_EQ(scan(tree, options).outcome.root.totalAllocatedSize(), 12);
    options.excludedPathPrefixes = {"/", "r", "/r/", "/r//Volumes"};
    EXPECT_EQ(scan(tree, options).outcome.root.totalAllocatedSize(), 12) << "no path begins so";
    options.excludedPathPrefixes = {"/r"};
    EXPECT_TRUE(scan(tree, options).outcome.root.children().empty()) << "only the root is exempt";
}

TEST(FileTreeScanner, listsNothingAtTheGreatestDepth) {
    ScanOptions options = fullScanOptions({});
    options.maxDepth = 2;
    const Scanned scanned = scan(
        Item::folder("r", {Item::folder("a", {Item::folder("b", {Item::file("f", 9)})})}), options);
    const FileNode& deepest = scanned.outcome.root.children().front().children().front();
    EXPECT_EQ(deepest.name(), "b");
    EXPECT_EQ(scanned.outcome.root.totalAllocatedSize(), 0);
    EXPECT_EQ(scanned.outcome.root.directoryCount(), 3);
    EXPECT_FALSE(deepest.truncated());
    EXPECT_EQ(scanned.progress.front().currentPath, "/r/a/b");
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

TEST(FileTreeScanner, tellsWhatIsPurgeableAndWhenItChanged) {
    Item cached = Item::file("cached", 10);
    cached.values.isPurgeable = true;
    Item folder = Item::folder("folder", {cached, Item::file("own", 5)});
    folder.values.isPurgeable = true;
    folder.values.contentModificationDate = 12.5;
    Item top = Item::folder("r", {folder});
    top.values.contentModificationDate = 7;
    const FileNode root = scan(top, fullScanOptions({})).outcome.root;
    EXPECT_FALSE(root.isPurgeable());
    EXPECT_EQ(root.modified(), 7);
    EXPECT_EQ(root.totalPurgeableSize(), 10);
    EXPECT_TRUE(child(root, "folder").isPurgeable());
    EXPECT_EQ(child(root, "folder").modified(), 12.5);
    EXPECT_FALSE(child(child(root, "folder"), "own").isPurgeable());
}

TEST(FileTreeScanner, fallsBackWhereAttributesAreAbsent) {
    Item odd = Item::file("odd", 0);
    odd.values = {};
    odd.values.fileSize = 77;
    Item device = Item::file("device", 1);
    device.values.fileResourceType = FileType::other;
    Item folder = Item::folder("folder", {Item::file("f", 5)});
    folder.values = {};
    folder.values.fileResourceType = FileType::directory;
    const FileNode root =
        scan(Item::folder("r", {odd, device, folder}), fullScanOptions({})).outcome.root;
    EXPECT_EQ(child(root, "odd").kind(), FileNode::Kind::other);
    EXPECT_EQ(child(root, "odd").allocatedSize(), 77);
    EXPECT_FALSE(child(root, "odd").modified().has_value());
    EXPECT_EQ(child(root, "device").kind(), FileNode::Kind::other);
    EXPECT_TRUE(child(root, "folder").isDirectory());
    EXPECT_EQ(root.totalAllocatedSize(), 83);
}

TEST(FileTreeScanner, recordsWhatItCannotReadAndGoesOn) {
    Item refused = Item::folder("refused", {Item::file("f", 1)});
    refused.listingError = SystemError{EACCES};
    Item broken = Item::folder("broken");
    broken.listingError = SystemError{EIO};
    Item unreadable = Item::file("gone", 1);
    unreadable.valuesError = SystemError{ENOENT};
    const Scanned scanned = scan(
        Item::folder("r", {refused, unreadable, broken, Item::file("f", 3)}), fullScanOptions({}));
    EXPECT_THAT(scanned.failures,
                ElementsAre(ScanFailure{"/r/refused", "Operation not permitted"},
                            ScanFailure{"/r/gone", "unreadable resource values"},
                            ScanFailure{"/r/broken", SystemError{EIO}.message()}));
    EXPECT_THAT(names(scanned.outcome.root), ElementsAre("refused", "broken", "f"));
    EXPECT_EQ(scanned.outcome.root.totalAllocatedSize(), 3);

    const Scanned none = scan(refused, fullScanOptions({}));
    EXPECT_EQ(none.outcome.outcome, Case::completed);
    EXPECT_EQ(none.failures.size(), 1U);
    EXPECT_EQ(none.outcome.root.directoryCount(), 1);
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
    Item refused = Item::folder("refused");
    refused.listingError = SystemError{EACCES};
    const Item tree = Item::folder("r", {refused, Item::file("a", 1)});
    ScanOptions options = fullScanOptions({});
    options.maxRetainedNodes = 1;
    options.deduplicatesHardlinks = true;
    FileTreeScanner scanner(options, std::make_shared<SyntheticFiles>("/r", tree));
    const ScanOutcome first = scanner.scan(FileURL("/r"));
    const ScanOutcome second = scanner.scan(FileURL("/r"));
    EXPECT_EQ(scanner.lastFailures().size(), 1U);
    EXPECT_EQ(second.root.children().size(), first.root.children().size());
    EXPECT_NE(second.root.id(), first.root.id());
}

TEST(FileTreeScanner, publishesTheTwoOptionSets) {
    const std::vector<std::string>& excluded = FileTreeScanner::defaultExcludedPrefixes();
    EXPECT_THAT(excluded,
                ElementsAre("/System/Volumes", "/Volumes", "/private/var/vm", "/dev", "/Network",
                            "/cores", "/.Spotlight-V100", "/.fseventsd", "/.Trashes"));
    const ScanOptions full{false, false,  true,   false,   256,   512,
                           32,    150000, 250000, 1048576, 50000, excluded};
    const ScanOptions detailed{false, false,  true,   false,   256,   512,
                               8192,  200000, 120000, 1048576, 60000, excluded};
    EXPECT_EQ(fullScanOptions(excluded), full);
    EXPECT_EQ(detailedScanOptions(excluded), detailed);
}

TEST(FileTreeScanner, measuresRealFilesByTheirBlocks) {
    const TemporaryHome home;
    home.write("d/data", std::string(5000, 'x'));
    home.write("d/sparse");
    std::filesystem::resize_file(home.path("d/sparse"), 50'000'000);
    home.makeLink("d/link", "data");
    home.write("d/bad \xff name", "x");
    FileTreeScanner scanner(keepingEverything(), systemFileManager(HostLayout{}));
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
