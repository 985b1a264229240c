#include <HostKit/DeepEnumerator.h>
#include <HostKit/HostLayout.h>
#include <ScanKit/FileSizeCalculator.h>
#include <ScanKit/FileTreeScanner.h>
#include <Support/DeepTree.h>
#include <Support/FaultyFiles.h>
#include <Support/TemporaryHome.h>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

namespace tolvane {
namespace {

namespace fs = std::filesystem;
using ::testing::UnorderedElementsAre;

std::shared_ptr<const FileManager> realFiles() {
    return systemFileManager(HostLayout{});
}

void makeSocket(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(),
                std::min(path.size(), sizeof(address.sun_path) - 1));
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    ::close(listener);
}

TEST(ScanFaults, pipesSocketsAndDevicesBlockNothing) {
    const TemporaryHome home;
    home.write("file", "x");
    ASSERT_EQ(::mkfifo(home.path("pipe").c_str(), 0600), 0);
    makeSocket(home.path("socket"));
    std::size_t items = 3;
    if (::mknod(home.path("device").c_str(), S_IFCHR | 0600, makedev(1, 3)) == 0) {
        ++items;
    }
    FileTreeScanner scanner(fullScanOptions({}), realFiles());
    const FileNode root = scanner.scan(home.url()).root;
    ASSERT_EQ(root.children().size(), items);
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
    makeDeepTree(home.url(), levels, name, "x");
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
    removeDeepTree(home.url(name));
}

TEST(ScanFaults, everyFolderThatCannotBeListedIsOneFailure) {
    const TemporaryHome home;
    home.write("a/f", "x");
    home.write("b/c/f", "x");
    home.write("b/g", "x");
    for (const int code : {EMFILE, EIO, EACCES, ENOENT}) {
        const auto faulty = std::make_shared<FaultyFiles>(
            realFiles(), [&](FileOperation operation, const FileURL& url) {
                const bool fails = operation == FileOperation::openDirectory &&
                                   (url == home.url("a") || url == home.url("b/c"));
                return fails ? std::optional(SystemError{code}) : std::nullopt;
            });
        FileTreeScanner scanner(fullScanOptions({}), faulty);
        const FileNode root = scanner.scan(home.url()).root;
        const std::string reason = SystemError{code}.description();
        EXPECT_THAT(scanner.lastFailures(),
                    UnorderedElementsAre(ScanFailure{home.path("a"), reason},
                                         ScanFailure{home.path("b/c"), reason}));
        EXPECT_EQ(root.totalAllocatedSize(), 4096);
        EXPECT_EQ(root.directoryCount(), 4);
        EXPECT_EQ(FileSizeCalculator::allocatedSize(*faulty, home.url()), 4096);
    }
}

TEST(ScanFaults, runningOutOfDescriptorsIsReportedFolderByFolder) {
    const TemporaryHome home;
    makeDeepTree(home.url(), 40, "d", "x");
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
    fs::permissions(home.path(""), fs::perms::all);
    const auto scanAsNobody = [&] {
        if (::geteuid() == 0 && ::setresuid(65534, 65534, 65534) != 0) {
            return false;
        }
        FileTreeScanner scanner(fullScanOptions({}), realFiles());
        const FileNode root = scanner.scan(home.url()).root;
        const std::vector<ScanFailure> expected{
            {home.path("closed"), "Operation not permitted"},
            {home.path("unsearchable/f"), "unreadable resource values"}};
        return std::ranges::is_permutation(scanner.lastFailures(), expected) &&
               root.totalAllocatedSize() == 4096 && root.directoryCount() == 4;
    };
    EXPECT_EXIT(::_exit(scanAsNobody() ? 0 : 1), ::testing::ExitedWithCode(0), "");
    fs::permissions(home.path("closed"), fs::perms::all);
    fs::permissions(home.path("unsearchable"), fs::perms::all);
}

TEST(ScanFaults, entriesThatVanishLeaveConsistentTotals) {
    const TemporaryHome home;
    const auto makeAll = [&] {
        for (int number = 0; number < 300; ++number) {
            home.write("d" + std::to_string(number % 10) + "/f" + std::to_string(number), "x");
        }
    };
    std::atomic<bool> isOver = false;
    std::thread remover([&] {
        while (!isOver) {
            makeAll();
            for (int number = 0; number < 10; ++number) {
                fs::remove_all(home.path("d" + std::to_string(number)));
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

/// Names of one file, made in memory where the machine has a file system there: quick to make, and
/// no limit on the number of names.
class ManyNames {
  public:
    explicit ManyNames(int count)
        : folder_(fs::path(::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") /
                  ("tolvane-names-" + std::to_string(::getpid()))) {
        fs::create_directories(folder_);
        const int folder = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ::close(::openat(folder, "0", O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
        for (int number = 1; number < count; ++number) {
            const std::string name = std::to_string(number);
            made_ = made_ && ::linkat(folder, "0", folder, name.c_str(), 0) == 0;
        }
        ::close(folder);
    }
    ~ManyNames() { fs::remove_all(folder_); }
    ManyNames(const ManyNames&) = delete;
    ManyNames& operator=(const ManyNames&) = delete;

    FileURL url() const { return FileURL(folder_); }
    bool wereMade() const { return made_; }

  private:
    fs::path folder_;
    bool made_ = true;
};

TEST(ScanFaults, aMillionEntriesInOneFolderAreCountedAndLeftAtOnce) {
    using Clock = std::chrono::steady_clock;
    constexpr int count = 1'000'000;
    const ManyNames names(count);
    if (!names.wereMade()) {
        GTEST_SKIP() << "no file system here takes a million names of one file";
    }
    rusage before{};
    ::getrusage(RUSAGE_SELF, &before);
    FileTreeScanner scanner(detailedScanOptions({}), realFiles());
    const FileNode root = scanner.scan(names.url()).root;
    rusage after{};
    ::getrusage(RUSAGE_SELF, &after);
    EXPECT_EQ(root.fileCount(), count);
    EXPECT_EQ(root.children().size(), 8192U);
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LE(after.ru_maxrss - before.ru_maxrss, 128 * 1024) << "KiB";
#endif

    Clock::time_point cancelled{};
    const ScanOutcome outcome = scanner.scan(names.url(), {}, [&] {
        cancelled = cancelled == Clock::time_point{} ? Clock::now() : cancelled;
        return true;
    });
    const std::chrono::duration<double> needed = Clock::now() - cancelled;
    EXPECT_EQ(outcome.outcome, ScanOutcome::Case::cancelled);
    EXPECT_EQ(outcome.root.fileCount(), 0) << "the listing itself was stopped";
    EXPECT_LT(needed.count(), 5.0);
}

}
}
