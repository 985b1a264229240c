#include <HostKit/HostLayout.h>
#include <ScanKit/FileSizeCalculator.h>
#include <Support/SyntheticFiles.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

namespace tolvane {
namespace {

using namespace FileSizeCalculator;
using Item = SyntheticItem;

TEST(FileSizeCalculator, measuresSingleItems) {
    const TemporaryHome home;
    const auto files = systemFileManager(HostLayout{});
    const FileURL file = home.write("file", std::string(5000, 'x'));
    const FileURL link = home.makeLink("link", "file");
    const FileURL dangling = home.makeLink("dangling", "nowhere");
    ASSERT_EQ(::mkfifo(home.path("pipe").c_str(), 0600), 0);

    EXPECT_EQ(allocatedSize(*files, file), 8192);
    EXPECT_EQ(logicalSize(*files, file), 5000);
    EXPECT_EQ(allocatedSize(*files, link), 0) << "a link is no regular file";
    EXPECT_EQ(logicalSize(*files, link), 4);
    EXPECT_EQ(allocatedSize(*files, dangling), 0);
    EXPECT_EQ(logicalSize(*files, dangling), 0);
    EXPECT_EQ(allocatedSize(*files, home.url("pipe")), 0);
    EXPECT_EQ(allocatedSize(*files, home.url("missing")), 0);
    EXPECT_EQ(logicalSize(*files, home.url("missing")), 0);
}

TEST(FileSizeCalculator, addsAFolderUp) {
    const TemporaryHome home;
    const auto files = systemFileManager(HostLayout{});
    home.write("d/file", std::string(5000, 'x'));
    home.write("d/.hidden/package.app/inner", "x");
    home.write("d/sparse");
    std::filesystem::resize_file(home.path("d/sparse"), 1'000'000);
    home.write("large", std::string(100'000, 'x'));
    home.makeLink("d/link", "../large");
    home.makeLink("d/folder link", "..");
    home.makeLink("to d", "d");

    EXPECT_EQ(allocatedSize(*files, home.url("d")), 8192 + 4096) << "links count nothing";
    EXPECT_EQ(logicalSize(*files, home.url("d")), 5000 + 1 + 1'000'000 + 8 + 2)
        << "links count with the length of their text";
    EXPECT_EQ(allocatedSize(*files, home.url("to d")), 0) << "not even the root is followed";
    EXPECT_EQ(logicalSize(*files, home.url("to d")), 0);
}

TEST(FileSizeCalculator, isStoppedBeforeTheItemAtWhichItAsks) {
    const SyntheticFiles files("/r",
                               Item::folder("r", std::vector<Item>(1000, Item::file("f", 2, 3))));
    const auto yes = [] { return true; };
    EXPECT_EQ(allocatedSize(files, FileURL("/r"), yes), 510);
    EXPECT_EQ(logicalSize(files, FileURL("/r"), yes), 3000) << "the logical walk always ends";
    int questions = 0;
    EXPECT_EQ(allocatedSize(files, FileURL("/r"), [&] { return ++questions > 100; }), 2000);
    EXPECT_EQ(questions, 3);
}

TEST(FileSizeCalculator, countsWhatItCannotReadAsNothing) {
    Item gone = Item::file("gone", 5, 5);
    gone.valuesError = SystemError{ENOENT};
    Item refused = Item::folder("refused", {Item::file("f", 7, 7)});
    refused.listingError = SystemError{EACCES};
    Item untyped = Item::file("untyped", 0, 11);
    untyped.values.isRegularFile.reset();
    untyped.values.totalFileAllocatedSize.reset();
    const SyntheticFiles files("/r",
                               Item::folder("r", {gone, refused, untyped, Item::file("f", 2, 3)}));
    EXPECT_EQ(allocatedSize(files, FileURL("/r")), 13);
    EXPECT_EQ(logicalSize(files, FileURL("/r")), 14);
    EXPECT_EQ(allocatedSize(files, FileURL("/r/refused")), 0);
}

}
}
