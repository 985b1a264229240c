#include <HostKit/DeepEnumerator.h>
#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <filesystem>

namespace tolvane {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class FileManagerTest : public ::testing::Test {
  protected:
    std::vector<std::string> list(std::string_view relative, const Listing& listing = {}) {
        const auto directory = files->openDirectory(home.url(relative), listing);
        std::vector<std::string> names;
        for (std::size_t position = 0; directory && position < (*directory)->count(); ++position) {
            names.emplace_back((*directory)->name(position));
        }
        return names;
    }

    /// The paths of all items below that the enumerator calls purgeable, relative to the home.
    std::vector<std::string> purgeableBelow(std::string_view relative) {
        std::vector<std::string> paths;
        DeepEnumerator below(*files, home.url(relative), {});
        while (below.next()) {
            const ResourceValues values = below.values().value();
            EXPECT_EQ(values.isPurgeable, files->values(below.url())->isPurgeable) << below.name();
            if (values.isPurgeable.value()) {
                paths.push_back(below.url().path().substr(home.url().path().size() + 1));
            }
        }
        return paths;
    }

    TemporaryHome home;
    std::shared_ptr<const FileManager> files = systemFileManager(
        HostLayout::freedesktop(home.url(), {{"XDG_CACHE_HOME", home.path("caches/mine")}}));
};

TEST_F(FileManagerTest, listsEveryNameAndReadsTheItemItself) {
    home.write("d/file", "12345");
    home.write("d/.hidden");
    home.write("d/line\nbreak \xff");
    home.makeLink("d/link", "file");
    home.makeFolder("d/folder");
    EXPECT_THAT(list("d"),
                UnorderedElementsAre("file", ".hidden", "line\nbreak \xff", "link", "folder"));
    EXPECT_THAT(list("d", {.skipsHidden = true}),
                UnorderedElementsAre("file", "line\nbreak \xff", "link", "folder"));
    EXPECT_THAT(list("d/folder"), ElementsAre());

    const ResourceValues link = files->values(home.url("d/link")).value();
    EXPECT_EQ(link.fileResourceType, FileType::symbolicLink);
    EXPECT_EQ(link.fileSize, 4);
    EXPECT_EQ(files->targetType(home.url("d/link")), FileType::regular);
    EXPECT_EQ(files->resolvingLinks(home.url("d/link")), home.url("d/file"));
    const ResourceValues folder = files->values(home.url("d/folder")).value();
    EXPECT_TRUE(folder.isDirectory.value());
    EXPECT_FALSE(folder.fileSize.has_value());
    EXPECT_EQ(files->values(home.url("d/none")).error().code, ENOENT);
    EXPECT_FALSE(files->exists(home.makeLink("d/dangling", "none")));
    EXPECT_TRUE(files->itemExists(home.url("d/dangling")));
}

TEST_F(FileManagerTest, opensFoldersButNoLinksFromWithinAListing) {
    home.write("d/folder/inner");
    home.makeLink("d/link", "folder");
    EXPECT_THAT(list("d/link"), ElementsAre("inner")) << "a path is followed";
    const auto directory = files->openDirectory(home.url("d"), {}).value();
    for (std::size_t position = 0; position < directory->count(); ++position) {
        const bool isFolder = directory->name(position) == "folder";
        EXPECT_EQ(directory->open(position, {}).has_value(), isFolder);
    }
    EXPECT_EQ(files->openDirectory(home.url("d/folder/inner"), {}).error().code, ENOTDIR);
}

TEST_F(FileManagerTest, knowsWhatTheSystemMayReclaim) {
    const std::string tag = "Signature: 8a477f597d28d172789f06886806bc55\n# a comment";
    home.write("caches/mine/a/f");
    home.write("caches/other/f");
    home.write("tagged/CACHEDIR.TAG", tag);
    home.write("tagged/deep/f");
    home.write("liar/CACHEDIR.TAG", "Signature: of nothing");
    home.write("liar/f");
    home.makeFolder("piped");
    ASSERT_EQ(::mkfifo(home.path("piped/CACHEDIR.TAG").c_str(), 0600), 0);
    home.makeLink("linked/CACHEDIR.TAG", "../tagged/CACHEDIR.TAG");
    EXPECT_THAT(purgeableBelow(""),
                UnorderedElementsAre("caches/mine/a", "caches/mine/a/f", "tagged/CACHEDIR.TAG",
                                     "tagged/deep", "tagged/deep/f"));
    EXPECT_THAT(purgeableBelow("caches/mine/a"), ElementsAre("caches/mine/a/f"));
    EXPECT_THAT(purgeableBelow("tagged/deep"), ElementsAre("tagged/deep/f"));
}

TEST_F(FileManagerTest, readsRegularFilesOnlyAndNeverWaits) {
    home.write("file", "0123456789");
    ASSERT_EQ(::mkfifo(home.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files->read(home.url("file"), 4), "0123");
    EXPECT_EQ(files->read(home.url("file"), 400), "0123456789");
    EXPECT_FALSE(files->read(home.url("pipe"), 4).has_value());
    EXPECT_TRUE(files->probeReading(home.url("pipe")).has_value());
    EXPECT_EQ(files->probeReading(home.url("none")).error().code, ENOENT);
    const std::string withNul = home.path("file") + std::string(1, '\0') + "x";
    EXPECT_EQ(files->read(FileURL(withNul), 4).error().code, EINVAL);
    EXPECT_FALSE(files->exists(FileURL(withNul)));
}

TEST_F(FileManagerTest, makesFoldersOnTheWay) {
    EXPECT_TRUE(files->createDirectories(home.url("a/b//c/")).has_value());
    EXPECT_TRUE(files->createDirectories(home.url("a/b/c")).has_value());
    EXPECT_EQ(files->targetType(home.url("a/b/c")), FileType::directory);
    home.write("file");
    EXPECT_EQ(files->createDirectories(home.url("file/x")).error().code, ENOTDIR);

    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(home.path("a"));
    EXPECT_TRUE(files->createDirectories(FileURL("relative/x")).has_value());
    EXPECT_EQ(files->values(FileURL("")).error().code, ENOENT) << "not the working directory";
    std::filesystem::current_path(before);
    EXPECT_TRUE(home.has("a/relative/x"));
}

TEST_F(FileManagerTest, servesPathsBeyondTheSystemsLimit) {
    const std::string name(200, 'n');
    const FileURL deepest = home.makeDeep(60, name, "content");
    ASSERT_GT(deepest.path().size(), static_cast<std::size_t>(PATH_MAX));
    EXPECT_EQ(files->read(deepest.appending("f"), 100), "content");
    EXPECT_EQ(files->values(deepest.appending("f"))->fileSize, 7);
    EXPECT_TRUE(files->createDirectories(deepest.appending("x/y")).has_value());
    EXPECT_EQ(files->targetType(deepest.appending("x/y")), FileType::directory);
    EXPECT_EQ(files->openDirectory(deepest, {}).value()->count(), 2U);
    const FileURL tooLong = home.url().appending(std::string(5000, 'n'));
    EXPECT_EQ(files->values(tooLong).error().code, ENAMETOOLONG);
}

TEST_F(FileManagerTest, findsItsWayBackThoughFoldersMoveMeanwhile) {
    const FileURL deepest = home.makeDeep(40, "d", "x");
    const std::string tenth = home.path("d/d/d/d/d/d/d/d/d/d");
    DeepEnumerator below(*files, home.url(), {});
    std::size_t items = 0;
    std::size_t unreadable = 0;
    while (below.next()) {
        ++items;
        if (below.url() == deepest) {
            std::filesystem::rename(tenth, home.path("moved"));
        }
        unreadable += below.values().has_value() ? 0 : 1;
    }
    EXPECT_GE(items, 79U) << "nothing above the moved folder is lost, nothing entered twice";
    EXPECT_LE(items, 80U);
    EXPECT_LE(unreadable, 31U) << "only what can no longer be reached by either way";
}

TEST_F(FileManagerTest, isWalkedInPreOrderLessWhatTheWalkIsTold) {
    home.write("r/a/b/f");
    home.write("r/a/.h/f");
    home.write("r/Some.APP/inner");
    home.makeLink("r/link", "a");
    std::vector<std::string> names;
    DeepEnumerator below(*files, home.url("r"), {.skipsHidden = true, .opaqueExtensions = {"app"}});
    while (below.next()) {
        names.emplace_back(below.name());
        if (below.name() == "b") {
            below.skipDescendants();
        }
    }
    EXPECT_THAT(names, UnorderedElementsAre("a", "b", "Some.APP", "link"));
    EXPECT_LT(std::ranges::find(names, "a"), std::ranges::find(names, "b"));

    std::vector<FileURL> failed;
    DeepEnumerator missing(*files, home.url("none"), {},
                           [&](const FileURL& url, SystemError) { failed.push_back(url); });
    EXPECT_FALSE(missing.next());
    EXPECT_THAT(failed, ElementsAre(home.url("none")));
}

}
}
