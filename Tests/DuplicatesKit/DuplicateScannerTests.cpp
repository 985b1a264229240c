#include <DuplicatesKit/DuplicateScanner.h>
#include <HostKit/HostLayout.h>
#include <Support/FaultyFiles.h>
#include <Support/OddNames.h>
#include <Support/RunProgram.h>
#include <Support/SyntheticFiles.h>
#include <Support/TemporaryHome.h>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <map>

namespace tolvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

constexpr std::size_t chunk = 1'048'576;

std::string content(std::size_t size, char filling,
                    const std::map<std::size_t, char>& changes = {}) {
    std::string text(size, filling);
    for (const auto& [offset, byte] : changes) {
        text[offset] = byte;
    }
    return text;
}

class DuplicateScan : public testing::Test {
  protected:
    /// Runs the scanner on the home; what it does to files is noted in `operations`.
    DuplicateScanResult scan(DuplicateOptions options = {1, true, {}}, std::string_view root = "") {
        const auto files = std::make_shared<FaultyFiles>(
            systemFileManager(HostLayout{}),
            [this](FileOperation operation, const FileURL& url) -> std::optional<SystemError> {
                ++operations[{operation, nameOf(url)}];
                return fault ? fault(operation, nameOf(url)) : std::nullopt;
            });
        DuplicateScanner scanner(std::move(options), files);
        DuplicateScanResult result = scanner.scan(
            home.url(root), [this](std::int64_t count) { reported.push_back(count); },
            [this] { return isCancelled; });
        uncertain.clear();
        for (const std::string& path : scanner.lastUncertain()) {
            uncertain.push_back(nameOf(FileURL(path)));
        }
        return result;
    }

    std::string nameOf(const FileURL& url) const {
        return url == home.url() ? "" : url.path().substr(home.url().path().size() + 1);
    }
    Names names(const DuplicateGroup& group) const {
        Names list;
        for (const DuplicateFile& file : group.files) {
            list.push_back(nameOf(file.url));
        }
        return list;
    }
    std::vector<Names> names(const DuplicateScanResult& result) const {
        std::vector<Names> list;
        for (const DuplicateGroup& group : result.groups) {
            list.push_back(names(group));
        }
        return list;
    }
    void linkFile(std::string_view from, std::string_view to) const {
        ASSERT_EQ(::link(home.path(from).c_str(), home.path(to).c_str()), 0);
    }

    const TemporaryHome home;
    std::function<std::optional<SystemError>(FileOperation, const std::string& name)> fault;
    std::map<std::pair<FileOperation, std::string>, int> operations;
    std::vector<std::int64_t> reported;
    Names uncertain;
    bool isCancelled = false;
};

TEST_F(DuplicateScan, findsWhatAnotherDigestCallsEqual) {
    // Around every border: no content, head, head and tail, one chunk, several.
    for (const std::size_t size : {0UL, 1UL, 4095UL, 4096UL, 4097UL, 6000UL, 8192UL, 8193UL,
                                   10000UL, chunk, 3 * chunk + 1}) {
        const std::string folder = std::to_string(size) + "/";
        const std::size_t middle = size / 2;
        const std::size_t last = size - 1;
        home.write(folder + "a", content(size, 'x'));
        home.write(folder + "b", content(size, 'x'));
        if (size > 0) {
            home.write(folder + "first", content(size, 'x', {{0, 'y'}}));
            home.write(folder + "first again", content(size, 'x', {{0, 'y'}}));
            home.write(folder + "last", content(size, 'x', {{last, 'z'}}));
            home.write(folder + "middle", content(size, 'x', {{middle, 'm'}}));
        }
    }
    for (const std::string& name : oddNames()) {
        home.write("odd " + name, "the same");
    }
    std::map<std::string, Names> expected;
    for (const auto& entry : fs::recursive_directory_iterator(home.path(""))) {
        if (entry.is_regular_file()) {
            const std::string path = entry.path().string();
            const std::string hash =
                runProgram({"sh", "-c", "sha256sum < \"$1\"", "sh", path}).output.substr(0, 64);
            expected[hash].push_back(nameOf(FileURL(path)));
        }
    }
    std::erase_if(expected, [](const auto& entry) { return entry.second.size() < 2; });
    std::map<std::string, Names> found;
    for (const DuplicateGroup& group : scan({0, true, {}}).groups) {
        found[group.hash()] = names(group);
        EXPECT_TRUE(std::ranges::is_sorted(found[group.hash()]));
    }
    for (auto& [hash, files] : expected) {
        std::ranges::sort(files);
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(found.size(), 22U);
    EXPECT_THAT(uncertain, IsEmpty());
}

TEST_F(DuplicateScan, ordersGroupsByWasteThenByPath) {
    for (const char* name : {"b1", "c2", "a3"}) {
        home.write(name, "equal");
    }
    home.write("z/2", "waste");
    home.write("z/1", "waste");
    home.write("m/2", "trees");
    home.write("m/1", "trees");
    home.write("empty1");
    home.write("empty2");
    home.write("large", content(9000, 'x'));
    home.write("large too", content(9000, 'x'));
    const DuplicateScanResult result = scan({0, true, {}});
    EXPECT_THAT(names(result),
                ElementsAre(Names{"large", "large too"}, Names{"a3", "b1", "c2"},
                            Names{"m/1", "m/2"}, Names{"z/1", "z/2"}, Names{"empty1", "empty2"}));
    EXPECT_EQ(result.wastedBytes(), 9000 + 10 + 5 + 5);
    EXPECT_EQ(result.duplicateFiles(), 11);
    EXPECT_EQ(result.scannedFiles, 11);
    EXPECT_EQ(result.groups[1].id(),
              "f9d6cd1ed5cf1ead7b54873537748e0daa8f1390cd61555b68089fca063444f3-5");
    EXPECT_EQ(result.root, home.url());
}

TEST_F(DuplicateScan, ordersManyPathsByTheirBytes) {
    for (std::size_t number = 0; number < 200; ++number) {
        const std::string folder = "all/" + std::string(1 + number % 5 * 7, 'x');
        home.write(folder + (number % 2 == 0 ? "/" : ".d/") + std::to_string(number), "the same");
        home.write("pairs" + folder + std::to_string(number), std::to_string(1000 + number / 2));
    }
    const std::vector<Names> groups = names(scan());
    ASSERT_EQ(groups.size(), 101U);
    EXPECT_EQ(groups[0].size(), 200U);
    EXPECT_TRUE(std::ranges::is_sorted(groups[0]));
    EXPECT_TRUE(std::ranges::is_sorted(groups.begin() + 1, groups.end()));
}

TEST_F(DuplicateScan, leavesOutWhatItIsToldTo) {
    for (const char* name : {"plain", "sub/plain", ".hidden", ".folder/inside", "Tool.app/inside",
                             "Tool.APPDIR/inside", "Tool.apple/inside", "skipped/inside",
                             "skipped2/inside", "sub/skipped file"}) {
        home.write(name, "the same");
    }
    home.write("larger", "more than that");
    home.write("larger too", "more than that");
    home.makeLink("link", "plain");
    home.makeLink("sub/to folder", "..");
    ASSERT_EQ(::mkfifo(home.path("pipe").c_str(), 0600), 0);
    const Names larger{"larger", "larger too"};
    const std::vector<std::pair<DuplicateOptions, std::vector<Names>>> table{
        {{9, true, {}}, {larger}},
        {{14, true, {}}, {larger}},
        {{15, true, {}}, {}},
        {{8, true, {home.path("skipped"), home.path("sub/skipped file")}},
         {{"Tool.apple/inside", "plain", "skipped2/inside", "sub/plain"}, larger}},
        {{8, false, {home.path("skipped"), home.path("s"), home.path("sub")}},
         {{".folder/inside", ".hidden", "Tool.apple/inside", "plain", "skipped2/inside"}, larger}},
        {{8, true, {home.path("")}}, {}},
    };
    for (const auto& [options, expected] : table) {
        EXPECT_EQ(names(scan(options)), expected) << options.minimumSize;
    }
    home.write("Tool.app/inside too", "the same");
    for (const char* const root : {"Tool.app", "Tool.app/"}) {
        EXPECT_THAT(names(scan({1, true, {}}, root)),
                    ElementsAre(Names{"Tool.app/inside", "Tool.app/inside too"}))
            << "the root is no package";
    }
    home.makeLink("to root", "Tool.app");
    EXPECT_THAT(names(scan({1, true, {}}, "to root")),
                ElementsAre(Names{"to root/inside", "to root/inside too"}));
}

TEST_F(DuplicateScan, opensNothingInVain) {
    home.write("alone", content(20'000, 'x'));
    home.write("small a", "short");
    home.write("small b", "short");
    home.write("head differs", content(10'000, 'x', {{0, 'y'}}));
    home.write("middle differs", content(10'000, 'x', {{5'000, 'y'}}));
    home.write("equal a", content(10'000, 'x'));
    home.write("equal b", content(10'000, 'x'));
    linkFile("equal b", "name of b");
    const DuplicateScanResult result = scan();
    EXPECT_THAT(names(result),
                ElementsAre(Names{"equal a", "equal b", "name of b"}, Names{"small a", "small b"}));
    EXPECT_EQ(result.scannedFiles, 8);
    EXPECT_EQ(result.candidateFiles, 7);
    EXPECT_THAT(reported, ElementsAre(1, 2, 3, 4, 5, 6, 7));
    EXPECT_EQ(operations.count({FileOperation::openFile, "alone"}), 0U);
    EXPECT_EQ((operations[{FileOperation::openFile, "small a"}]), 1);
    EXPECT_EQ((operations[{FileOperation::openFile, "head differs"}]), 1);
    EXPECT_EQ((operations[{FileOperation::openFile, "middle differs"}]), 2);
    EXPECT_EQ((operations[{FileOperation::openFile, "equal a"}]), 2);
    EXPECT_EQ((operations[{FileOperation::openFile, "equal b"}] +
               operations[{FileOperation::openFile, "name of b"}]),
              2);

    EXPECT_EQ(result.groups[0].firstNames(), (std::vector<std::size_t>{0, 1, 1}));
    EXPECT_EQ(result.groups[0].wastedBytes(), 20'000);
    EXPECT_EQ(result.groups[0].reclaimableBytes(), 10'000);
    EXPECT_EQ(result.reclaimableBytes(), 10'005);
}

TEST_F(DuplicateScan, cancelledGivesWhatIsCertain) {
    for (const char* name : {"a/1", "a/2", "b/1", "b/2", "b/3"}) {
        home.write(name, content(3 * chunk, name[0], {{1, 'n'}}));
    }
    struct Case {
        FileOperation operation;
        /// Counted from 1, over all files.
        int number;
        std::int64_t scanned;
        std::int64_t candidates;
        std::size_t groupedFiles;
    };
    // Two reads a file in the first pass, four in the second: 28 is within the last file.
    const std::vector<Case> table{
        {FileOperation::openDirectory, 2, -1, 0, 0}, {FileOperation::readFile, 1, 5, 1, 0},
        {FileOperation::readFile, 4, 5, 2, 0},       {FileOperation::readFile, 12, 5, 5, 0},
        {FileOperation::readFile, 16, 5, 5, 0},      {FileOperation::readFile, 28, 5, 5, 3},
        {FileOperation::readFile, 100, 5, 5, 5},
    };
    for (const Case& expected : table) {
        int count = 0;
        isCancelled = false;
        operations.clear();
        fault = [&](FileOperation operation, const std::string&) -> std::optional<SystemError> {
            count += operation == expected.operation ? 1 : 0;
            isCancelled = isCancelled || count == expected.number;
            return {};
        };
        const DuplicateScanResult result = scan();
        EXPECT_EQ(result.candidateFiles, expected.candidates) << expected.number;
        EXPECT_LE(count, expected.number + 1) << "no other file is read afterwards";
        EXPECT_THAT(uncertain, IsEmpty());
        EXPECT_EQ(result.duplicateFiles(), static_cast<std::int64_t>(expected.groupedFiles))
            << expected.number;
        if (expected.scanned >= 0) {
            EXPECT_EQ(result.scannedFiles, expected.scanned) << expected.number;
        } else {
            EXPECT_LT(result.scannedFiles, 5) << expected.number;
        }
    }
}

TEST_F(DuplicateScan, remembersWhatItCannotBeSureOf) {
    const std::string whole = content(2 * chunk, 'x');
    for (const char* name : {"a", "b", "changed", "replaced", "touched", "unreadable"}) {
        home.write(name, whole);
    }
    home.write("small a", "short");
    home.write("small changed", "short");
    std::map<std::string, int> reads;
    const auto onRead = [&](const std::string& name) -> std::optional<SystemError> {
        const int number = ++reads[name];
        if (name == "unreadable" && number == 4) {
            return SystemError{EIO};
        }
        if (name == "changed" && number == 4) {
            const fs::file_time_type time = fs::last_write_time(home.path(name));
            home.write(name, content(2 * chunk, 'x', {{5, 'y'}}));
            fs::last_write_time(home.path(name), time);
        }
        if (name == "replaced" && number == 3) {
            fs::rename(home.path(name), home.path(".old"));
            home.write(name, whole);
        }
        if (name == "small changed" || (name == "touched" && number == 3)) {
            fs::last_write_time(home.path(name), fs::file_time_type::clock::now());
        }
        return {};
    };
    fault = [&](FileOperation operation, const std::string& name) {
        return operation == FileOperation::readFile ? onRead(name) : std::nullopt;
    };
    const DuplicateScanResult result = scan();
    EXPECT_THAT(uncertain,
                ElementsAre("changed", "replaced", "small changed", "touched", "unreadable"));
    EXPECT_THAT(result.errors, IsEmpty());
    EXPECT_THAT(names(result), ElementsAre(Names{"a", "b", "changed", "replaced", "touched"},
                                           Names{"small a", "small changed"}))
        << "what was read of the unreadable file is less";
    const auto now = systemFileManager(HostLayout{});
    const auto isUnchanged = [&](const DuplicateFile& file) {
        return file.isUnchanged(*now->values(file.url));
    };
    EXPECT_TRUE(isUnchanged(result.groups[0].files[0]));
    EXPECT_FALSE(isUnchanged(result.groups[0].files[2])) << "its time was set back";
    EXPECT_FALSE(isUnchanged(result.groups[0].files[3])) << "it is another file by now";
}

TEST_F(DuplicateScan, sortsByWholePathsAcrossFolders) {
    const Names sorted{"a b/c",   "a-b/c/d", "a-b/e", "a/b c/d", "a/b-",
                       "a/b/c/d", "a/b/c/e", "a/b/d", "a/b0",    "a0"};
    for (const std::string& name : sorted) {
        home.write(name, "same");
    }
    EXPECT_THAT(names(scan()), ElementsAre(sorted));
}

TEST_F(DuplicateScan, takesWhatBecameOfFilesSinceTheWalk) {
    for (const char* name : {"a", "b", "gone", "link", "pipe", "refused"}) {
        home.write(name, content(10'000, 'x'));
    }
    linkFile("gone", "name of gone");
    std::string gone;
    fault = [&](FileOperation operation, const std::string& name) -> std::optional<SystemError> {
        if (operation != FileOperation::openFile) {
            return {};
        }
        if (name.ends_with("gone") && gone.empty()) {
            gone = name;
        }
        if (name == gone || name == "link" || name == "pipe") {
            fs::remove(home.path(name));
        }
        if (name == "link") {
            home.makeLink(name, "a");
        }
        if (name == "pipe") {
            EXPECT_EQ(::mkfifo(home.path(name).c_str(), 0600), 0);
        }
        return name == "refused" ? std::optional(SystemError{EACCES}) : std::nullopt;
    };
    const DuplicateScanResult result = scan();
    const std::string left = gone == "gone" ? "name of gone" : "gone";
    EXPECT_THAT(names(result), ElementsAre(Names{"a", "b", left}));
    EXPECT_EQ(result.candidateFiles, 7);
    EXPECT_THAT(result.errors, IsEmpty());
}

TEST(DuplicateScanner, noticesACancellationWhileItSorts) {
    SyntheticItem root = SyntheticItem::folder("r");
    for (int number = 0; number < 70'000; ++number) {
        root.children.push_back(SyntheticItem::file(std::to_string(number), 5, 5));
    }
    const auto files = std::make_shared<SyntheticFiles>("/r", root);
    int asked = 0;
    constexpr int never = 1'000'000;
    int askedBeforeReading = never;
    const auto scan = [&](int cancelledAt) {
        asked = 0;
        return DuplicateScanner({1, true, {}}, files)
            .scan(
                FileURL("/r"),
                [&](std::int64_t) { askedBeforeReading = std::min(askedBeforeReading, asked); },
                [&] { return ++asked >= std::min(cancelledAt, askedBeforeReading + 2); });
    };
    EXPECT_EQ(scan(never).candidateFiles, 2);
    const DuplicateScanResult result = scan(askedBeforeReading - 2);
    EXPECT_EQ(result.scannedFiles, 70'000) << "the walk was over";
    EXPECT_EQ(result.candidateFiles, 0);
}

TEST(DuplicateScanner, reportsFoldersButNotEntries) {
    using Item = SyntheticItem;
    Item root = Item::folder("r", {Item::folder("refused"), Item::file("gone", 5, 5),
                                   Item::file("untyped", 5, 5), Item::file("unsized", 5, 5)});
    root.children[0].listingError = SystemError{EACCES};
    root.children[1].valuesError = SystemError{ENOENT};
    root.children[2].values.isRegularFile.reset();
    root.children[3].values.fileSize.reset();
    const auto files = std::make_shared<SyntheticFiles>("/r", root);
    for (const auto& [minimumSize, scanned] : {std::pair(1, 0), std::pair(0, 1)}) {
        DuplicateScanner scanner({minimumSize, true, {}}, files);
        const DuplicateScanResult result = scanner.scan(FileURL("/r"));
        EXPECT_EQ(result.scannedFiles, scanned);
        EXPECT_EQ(result.candidateFiles, 0);
        EXPECT_THAT(result.errors,
                    ElementsAre(ScanFailure{"/r/refused", "Operation not permitted"}));
    }
    DuplicateScanner scanner({1, true, {}}, files);
    EXPECT_THAT(scanner.scan(FileURL("/missing")).errors,
                ElementsAre(ScanFailure{"/missing", "No such file or directory"}));
}

}
}
