#include <DuplicatesKit/DuplicateScanner.h>
#include <HostKit/Date.h>
#include <HostKit/DeepEnumerator.h>
#include <HostKit/HostLayout.h>
#include <ScanKit/FileSizeCalculator.h>
#include <ScanKit/FileTreeScanner.h>
#include <Support/OrdinaryUser.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <set>
#include <thread>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

std::shared_ptr<const FileManager> realFiles() {
    return systemFileManager(HostLayout{});
}

/// How many descriptors this process holds.
std::size_t openDescriptors() {
    const fs::directory_iterator listing("/proc/self/fd");
    // One of them is the listing's own.
    return static_cast<std::size_t>(std::distance(begin(listing), end(listing))) - 1;
}

TEST(ScanFaults, pipesSocketsAndDevicesBlockNothing) {
    const TemporaryHome home;
    home.write("file", "x");
    ASSERT_EQ(::mkfifo(home.path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::mknod(home.path("socket").c_str(), S_IFSOCK | 0600, 0), 0);
    const bool isRoot = ::mknod(home.path("null").c_str(), S_IFCHR | 0600, makedev(1, 3)) == 0;
    FileTreeScanner scanner(fullScanOptions({}), realFiles());
    const FileNode root = scanner.scan(home.url()).root;
    ASSERT_EQ(root.children().size(), isRoot ? 4U : 3U);
    for (const FileNode& node : root.children()) {
        const bool isFile = node.name() == "file";
        EXPECT_EQ(node.kind(), isFile ? FileNode::Kind::regular : FileNode::Kind::other);
    }
    EXPECT_EQ(FileSizeCalculator::allocatedSize(*realFiles(), home.url()), 4096);
    EXPECT_EQ(FileSizeCalculator::allocatedSize(*realFiles(), home.url("pipe")), 0);
}

TEST(ScanFaults, fourThousandLevelsCostNeitherStackNorDescriptors) {
    const TemporaryHome home;
    const std::string name(100, 'n');
    constexpr std::size_t levels = 4000;
    home.makeDeep(levels, name, "x");
    const auto files = realFiles();
    EXPECT_EQ(FileSizeCalculator::allocatedSize(*files, home.url()),
              static_cast<Bytes>(levels) * 4096);
    EXPECT_EQ(FileSizeCalculator::logicalSize(*files, home.url()), static_cast<Bytes>(levels));

    const std::size_t before = openDescriptors();
    std::size_t most = 0;
    std::size_t items = 0;
    DeepEnumerator below(*files, home.url(), {});
    while (below.next()) {
        most = ++items % 97 == 0 ? std::max(most, openDescriptors() - before) : most;
    }
    EXPECT_EQ(items, 2 * levels);
    EXPECT_LE(most, 64U);

    FileTreeScanner scanner(fullScanOptions({}), files);
    const NodeTotals scanned = totals(scanner.scan(home.url()).root);
    EXPECT_EQ(scanned.directoryCount, 257) << "the folder at depth 256 is there but not listed";
    EXPECT_EQ(scanned.fileCount, 255);
    EXPECT_TRUE(scanner.lastFailures().empty());

    DuplicateScanner comparer({1, true, {}}, files);
    std::int64_t compared = 0;
    // The paths of all of them would take most of a gigabyte.
    constexpr std::int64_t enough = 30;
    most = 0;
    const DuplicateScanResult part = comparer.scan(
        home.url(), [&](std::int64_t count) { compared = count; },
        [&] {
            const bool isDue = compared > 0 || ++items % 97 == 0;
            most = isDue ? std::max(most, openDescriptors() - before) : most;
            return compared == enough;
        });
    EXPECT_EQ(part.scannedFiles, static_cast<std::int64_t>(levels));
    EXPECT_EQ(part.candidateFiles, enough);
    EXPECT_LE(most, 64U);
    const TemporaryHome longPaths;
    longPaths.makeDeep(300, std::string(20, 'n'), "x");
    EXPECT_EQ(comparer.scan(longPaths.url()).duplicateFiles(), 300);
}

TEST(ScanFaults, duplicatesAreFoundWhereFewFilesMayBeOpen) {
    const TemporaryHome home;
    constexpr int count = 30;
    for (int number = 0; number < count; ++number) {
        home.write(std::to_string(number), std::string(5000, 'x'));
    }
    home.write("closed/file", std::string(5000, 'x'));
    fs::permissions(home.path("closed"), fs::perms::none);
    giveToOrdinaryUser(home.path(""));
    const std::string told = asOrdinaryUser([&] {
        rlimit limit{};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        limit.rlim_cur = static_cast<rlim_t>(openDescriptors()) + 4;
        ::setrlimit(RLIMIT_NOFILE, &limit);
        DuplicateScanner scanner({1, true, {}}, realFiles());
        const DuplicateScanResult result = scanner.scan(home.url());
        return std::to_string(result.duplicateFiles()) + " " +
               testing::PrintToString(result.errors.size()) + result.errors.front().reason;
    });
    EXPECT_EQ(told, "30 1Operation not permitted");
    fs::permissions(home.path("closed"), fs::perms::all);
}

TEST(ScanFaults, runningOutOfDescriptorsIsReportedFolderByFolder) {
    const TemporaryHome home;
    home.makeDeep(40, "d", "x");
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    const rlimit before = limit;
    FileTreeScanner scanner(fullScanOptions({}), realFiles());

    limit.rlim_cur = 32;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    const FileNode whole = scanner.scan(home.url()).root;
    const std::size_t failuresOfWhole = scanner.lastFailures().size();
    limit.rlim_cur = static_cast<rlim_t>(openDescriptors()) + 6;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    const FileNode part = scanner.scan(home.url()).root;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);

    EXPECT_EQ(failuresOfWhole, 0U) << "a walk holds far fewer than 32";
    EXPECT_EQ(whole.fileCount(), 40);
    ASSERT_EQ(scanner.lastFailures().size(), 1U);
    EXPECT_EQ(scanner.lastFailures().front().reason, SystemError{EMFILE}.message());
    EXPECT_EQ(part.fileCount() + 2, part.directoryCount()) << "all above the failure is counted";
    EXPECT_GT(part.fileCount(), 2);
}

TEST(ScanFaults, refusedFoldersAreReportedToAnOrdinaryUser) {
    const TemporaryHome home;
    home.write("open/f", "x");
    home.write("closed/f", "x");
    home.write("unsearchable/f", "x");
    fs::permissions(home.path("closed"), fs::perms::none);
    fs::permissions(home.path("unsearchable"), fs::perms{0444});
    giveToOrdinaryUser(home.path(""));
    const std::string told = asOrdinaryUser([&] {
        FileTreeScanner scanner(fullScanOptions({}), realFiles());
        const NodeTotals all = totals(scanner.scan(home.url()).root);
        std::set<std::string> lines{std::to_string(all.totalAllocatedSize),
                                    std::to_string(all.directoryCount)};
        for (const ScanFailure& failure : scanner.lastFailures()) {
            lines.insert(failure.path + ": " + failure.reason);
        }
        return testing::PrintToString(lines);
    });
    const std::set<std::string> expected{
        "4096", "4", home.path("closed") + ": Operation not permitted",
        home.path("unsearchable/f") + ": unreadable resource values"};
    EXPECT_EQ(told, testing::PrintToString(expected));
    fs::permissions(home.path("closed"), fs::perms::all);
    fs::permissions(home.path("unsearchable"), fs::perms::all);
}

TEST(ScanFaults, entriesThatVanishLeaveConsistentTotals) {
    const TemporaryHome home;
    std::atomic<bool> isOver = false;
    std::thread remover([&] {
        while (!isOver) {
            for (int number = 0; number < 300; ++number) {
                home.write(std::to_string(number % 10) + "/f" + std::to_string(number), "x");
            }
            for (int number = 0; number < 10; ++number) {
                fs::remove_all(home.path(std::to_string(number)));
            }
        }
    });
    FileTreeScanner scanner(fullScanOptions({}), realFiles());
    for (int round = 0; round < 50; ++round) {
        ScanProgress last;
        const FileNode root =
            scanner.scan(home.url(), [&](const ScanProgress& progress) { last = progress; }).root;
        ASSERT_EQ(root.fileCount(), last.filesScanned);
        ASSERT_EQ(root.directoryCount(), last.directoriesScanned);
        ASSERT_EQ(root.totalAllocatedSize(), last.scannedBytes);
        for (const ScanFailure& failure : scanner.lastFailures()) {
            const bool isExpected = failure.reason == "unreadable resource values" ||
                                    failure.reason == SystemError{ENOENT}.message();
            ASSERT_TRUE(isExpected) << failure.path << ": " << failure.reason;
        }
    }
    isOver = true;
    remover.join();
}

TEST(ScanFaults, aMillionEntriesInOneFolderAreCountedAndLeftAtOnce) {
    // Names of one file in memory, where the machine has a file system there: quick to make, and no
    // limit on their number.
    const TemporaryHome home(::access("/dev/shm", W_OK) == 0 ? "/dev/shm"
                                                             : fs::temp_directory_path());
    constexpr int count = 1'000'000;
    const std::string first = home.write("0").path();
    for (int number = 1; number < count; ++number) {
        const std::string name = home.path("") + "/" + std::to_string(number);
        if (::link(first.c_str(), name.c_str()) != 0) {
            GTEST_SKIP() << "no file system here takes a million names of one file";
        }
    }
    rusage before{};
    ::getrusage(RUSAGE_SELF, &before);
    FileTreeScanner scanner(detailedScanOptions({}), realFiles());
    const FileNode root = scanner.scan(home.url()).root;
    rusage after{};
    ::getrusage(RUSAGE_SELF, &after);
    EXPECT_EQ(root.fileCount(), count);
    EXPECT_EQ(root.children().size(), 8192U);
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LE(after.ru_maxrss - before.ru_maxrss, 128 * 1024) << "KiB";
#endif

    Date cancelled = 0;
    const ScanOutcome outcome = scanner.scan(home.url(), {}, [&] {
        cancelled = cancelled == 0 ? now() : cancelled;
        return true;
    });
    EXPECT_EQ(outcome.outcome, ScanOutcome::Case::cancelled);
    EXPECT_EQ(outcome.root.fileCount(), 0) << "the listing itself was stopped";
    EXPECT_LT(now() - cancelled, 5.0);
}

}
}
