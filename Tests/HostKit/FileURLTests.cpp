#include <HostKit/FileURL.h>

#include <gtest/gtest.h>

#include <array>

namespace tolvane {
namespace {

TEST(FileURL, takesAPathApart) {
    struct Case {
        const char* path;
        const char* last;
        const char* extension;
        const char* parent;
    };
    constexpr std::array<Case, 11> cases{{{"/a/b.txt", "b.txt", "txt", "/a"},
                                          {"/", "", "", "/"},
                                          {"", "", "", ""},
                                          {"///", "", "", "/"},
                                          {"/a/b/", "b", "", "/a"},
                                          {"/a//b", "b", "", "/a"},
                                          {"/.hidden", ".hidden", "", "/"},
                                          {"/a/.hidden.tar.gz", ".hidden.tar.gz", "gz", "/a"},
                                          {"/a/b.", "b.", "", "/a"},
                                          {"name", "name", "", ""},
                                          {"/\xff/\n.\xfe", "\n.\xfe", "\xfe", "/\xff"}}};
    for (const Case& each : cases) {
        const FileURL url(each.path);
        EXPECT_EQ(url.lastPathComponent(), each.last) << each.path;
        EXPECT_EQ(url.pathExtension(), each.extension) << each.path;
        EXPECT_EQ(url.deletingLastPathComponent().path(), each.parent) << each.path;
    }
}

TEST(FileURL, standardizesByTextAlone) {
    constexpr std::array<std::array<const char*, 2>, 8> cases{{{"//a/.///b//", "/a/b"},
                                                               {"/a/../b", "/b"},
                                                               {"/../../a", "/a"},
                                                               {"/a/..", "/"},
                                                               {"", ""},
                                                               {"a/../../b", "../b"},
                                                               {"../..", "../.."},
                                                               {"/a/..b/.c/...", "/a/..b/.c/..."}}};
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(FileURL(path).standardized().path(), expected) << path;
    }
}

TEST(FileURL, joinsWithOneSeparator) {
    EXPECT_EQ(FileURL("/").appending("a").path(), "/a");
    EXPECT_EQ(FileURL("/a").appending("b/c").path(), "/a/b/c");
    EXPECT_EQ(FileURL("/a/").appending("b").path(), "/a/b");
    EXPECT_EQ(FileURL::absolute("b/c", "/home/u").path(), "/home/u/b/c");
    EXPECT_EQ(FileURL::absolute("/b", "/work").path(), "/b");
}

TEST(FileURL, liesWithinByWholeComponents) {
    EXPECT_TRUE(liesWithin("/mnt", "/mnt"));
    EXPECT_TRUE(liesWithin("/mnt/a", "/mnt"));
    EXPECT_FALSE(liesWithin("/mnt2", "/mnt"));
    EXPECT_FALSE(liesWithin("/mn", "/mnt"));
    EXPECT_TRUE(liesWithin("/", "/"));
    EXPECT_FALSE(liesWithin("/a", "/")) << "the rule is textual: nothing begins with two slashes";
}

}
}
