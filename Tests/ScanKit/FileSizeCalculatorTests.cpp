#include <HostKit/HostLayout.h>
#include <ScanKit/FileSizeCalculator.h>
#include <Support/SyntheticFiles.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace tolvane {
namespace {

using namespace FileSizeCalculator;
using Item = SyntheticItem;

TEST(FileSizeCalculator, measuresItemsAndFolders) {
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
    home.makeLink("dangling", "nowhere");
    const auto expectSizes = [&](std::string_view item, Bytes allocated, Bytes logical) {
        EXPECT_EQ(allocatedSize(*files, home.url(item)), allocated) << item;
        EXPECT_EQ(logicalSize(*files, home.url(item)), logical) << item;
    };
    expectSizes("d/file", 8192, 5000);
    expectSizes("d/link", 0, 8); // no regular file, measured by the length of its text
    expectSizes("d", 8192 + 4096, 5000 + 1 + 1'000'000 + 8 + 2);
    expectSizes("to d", 0, 0); // not even the root is followed
    expectSizes("dangling", 0, 0);
    expectSizes("missing", 0, 0);
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
    Item root = Item::folder("r", {Item::file("gone", 5, 5),
                                   Item::folder("refused", {Item::file("f", 7, 7)}),
                                   Item::file("untyped", 0, 11), Item::file("f", 2, 3)});
    root.children[0].valuesError = SystemError{ENOENT};
    root.children[1].listingError = SystemError{EACCES};
    root.children[2].values.isRegularFile.reset();
    root.children[2].values.totalFileAllocatedSize.reset();
    const SyntheticFiles files("/r", root);
    EXPECT_EQ(allocatedSize(files, FileURL("/r")), 13);
    EXPECT_EQ(logicalSize(files, FileURL("/r")), 14);
    EXPECT_EQ(allocatedSize(files, FileURL("/r/refused")), 0);
}

}
}
