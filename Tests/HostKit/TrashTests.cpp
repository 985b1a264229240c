#include <HostKit/Trash.h>
#include <HostKit/TrashInfo.h>
#include <Support/TemporaryHome.h>
#include <Support/TreeState.h>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <set>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

const std::string trashFolder = ".local/share/Trash";

class TrashTest : public testing::Test {
  protected:
    /// The name it bears in the Trash; a failed move fails the test.
    std::string trashed(const FileURL& item) const {
        const auto moved = trash->move(item, home.url());
        EXPECT_TRUE(moved && *moved) << moved.error();
        return moved && *moved ? std::string((*moved)->lastPathComponent()) : "";
    }
    std::string refusal(const FileURL& item, const FileURL& within) const {
        const auto moved = trash->move(item, within);
        return moved ? "" : moved.error();
    }
    std::string refusal(const std::string& relative) const {
        return refusal(home.url(relative), home.url());
    }
    FileURL inTrash(const std::string& name) const {
        return home.url(trashFolder + "/files/" + name);
    }
    static std::string info(const std::string& name) {
        return trashFolder + "/info/" + name + ".trashinfo";
    }

    TemporaryHome home;
    HostLayout layout = HostLayout::freedesktop(home.url(), {});
    std::shared_ptr<const Trash> trash = systemTrash(layout);
};

TEST_F(TrashTest, movesAnItemWithItsInfoFileAndBack) {
    home.write("docs/a b/file", "content");
    home.makeLink("docs/link", "../target");
    home.write("target/file");
    const TreeState before = treeState(home.path("docs"));

    EXPECT_EQ(trashed(home.url("docs/a b")), "a b");
    EXPECT_EQ(trashed(home.url("docs/link")), "link");
    EXPECT_TRUE(treeState(home.path("docs")).empty());
    EXPECT_TRUE(home.has("target/file")) << "a link moves alone";
    EXPECT_EQ(home.read(trashFolder + "/files/a b/file"), "content");
    EXPECT_THAT(home.read(info("a b")),
                testing::MatchesRegex("\\[Trash Info\\]\nPath=" + home.path("docs/a%20b") +
                                      "\nDeletionDate=[0-9]{4}-[0-9]{2}-[0-9]{2}T"
                                      "[0-9]{2}:[0-9]{2}:[0-9]{2}\n"));
    for (const char* part : {"", "/files", "/info"}) {
        EXPECT_EQ(fs::status(home.path(trashFolder) + part).permissions(), fs::perms::owner_all);
    }

    fs::remove(home.path("docs"));
    EXPECT_TRUE(trash->putBack(inTrash("a b"), home.url("docs/a b")));
    EXPECT_TRUE(trash->putBack(inTrash("link"), home.url("docs/link")));
    EXPECT_EQ(treeState(home.path("docs")), before);
    EXPECT_EQ(treeState(home.path(trashFolder)).size(), 2U) << "only the empty folders remain";
}

TEST_F(TrashTest, findsAFreeNameForEveryItem) {
    home.write(info("x.txt"), "left by another program");
    home.write(trashFolder + "/files/x.2.txt", "without an info file");
    std::set<std::string> names;
    for (int count = 0; count < 40; ++count) {
        names.insert(trashed(home.write("x.txt", std::to_string(count))));
    }
    std::set<std::string> expected;
    for (unsigned number = 3; number < 43; ++number) {
        expected.insert(trashName("x.txt", number));
    }
    EXPECT_EQ(names, expected);
    EXPECT_FALSE(home.has(info("x.2.txt")));
    EXPECT_EQ(home.read(info("x.txt")), "left by another program");
}

TEST_F(TrashTest, leavesWhatMustStayWhereItIs) {
    home.write("item");
    home.write("data/file");
    trashed(home.url("item"));
    const TreeState before = treeState(home.url().path());
    const std::string inside = "The item is already in the Trash";
    const std::string holds = "The folder contains the Trash";
    const std::string isHome = "The home folder cannot be moved to the Trash";
    EXPECT_EQ(refusal(trashFolder + "/files/item"), inside);
    EXPECT_EQ(refusal(trashFolder + "/info/item.trashinfo"), inside);
    EXPECT_EQ(refusal(trashFolder + "/files"), inside);
    EXPECT_EQ(refusal(trashFolder), holds);
    EXPECT_EQ(refusal(".local"), holds);
    const FileURL above = home.url().deletingLastPathComponent();
    EXPECT_EQ(refusal(home.url(), above), isHome);
    EXPECT_EQ(refusal("gone"), "No such file or directory");
    EXPECT_EQ(refusal("item/x"), "No such file or directory");
    EXPECT_EQ(refusal(home.url(), home.url()), "Invalid argument");
    EXPECT_EQ(refusal(home.url("data"), home.url("data/file")), "Invalid argument");
    EXPECT_EQ(refusal(home.url("data/../data"), home.url()), "Invalid argument");
    EXPECT_EQ(refusal(FileURL("/proc"), FileURL("/")), "The item is a mount point");
    EXPECT_EQ(treeState(home.url().path()), before);
}

TEST_F(TrashTest, knowsTheHomeAndTheTrashBehindLinks) {
    home.write("real/u/file");
    home.makeLink("home", "real");
    home.makeLink("real/u/.local", "../data");
    home.makeFolder("real/data/share");
    layout = HostLayout::freedesktop(home.url("home/u"), {});
    trash = systemTrash(layout);
    for (const char* path : {"home", "real", "real/u"}) {
        EXPECT_EQ(refusal(path), "The home folder cannot be moved to the Trash") << path;
    }
    for (const char* path : {"real/data", "real/data/share"}) {
        EXPECT_EQ(refusal(path), "The folder contains the Trash") << path;
    }
    const FileURL named = home.url("home/u");
    EXPECT_EQ(refusal(named.appending(".local"), named), "The folder contains the Trash");
    const auto moved = trash->move(named.appending("file"), named);
    ASSERT_TRUE(moved && *moved);
    EXPECT_EQ(refusal("real/data/share/Trash/files/file"), "The item is already in the Trash");
    EXPECT_TRUE(trash->putBack(**moved, named.appending("file")));
    EXPECT_TRUE(fs::is_empty(home.path("real/data/share/Trash/info")));
}

TEST_F(TrashTest, followsNoLinkBelowTheChosenFolder) {
    home.write("outside/x/precious");
    home.makeFolder("chosen");
    home.makeLink("chosen/folder", "../outside");
    home.makeLink("way", "chosen");
    EXPECT_EQ(refusal(home.url("chosen/folder/x"), home.url("chosen")), "Not a directory");
    EXPECT_EQ(refusal(home.url("chosen/folder/x/precious"), home.url("chosen")), "Not a directory");
    EXPECT_TRUE(home.has("outside/x/precious"));
    home.write("chosen/file");
    EXPECT_TRUE(trash->move(home.url("way/file"), home.url("way")));
    EXPECT_FALSE(home.has("chosen/file")) << "the way to the chosen folder is the user's own";
}

TEST_F(TrashTest, removesOnlyTheInfoFileThatTellsOfTheItem) {
    for (const char* name : {"a", "b", "c"}) {
        trashed(home.write(name));
    }
    home.write("file");
    EXPECT_FALSE(trash->putBack(inTrash("gone"), home.url("gone")));
    EXPECT_FALSE(trash->putBack(inTrash("a"), home.url("file/below a file")));
    EXPECT_TRUE(trash->putBack(inTrash("a"), home.url("renamed")));
    EXPECT_TRUE(home.has(info("a"))) << "it tells of another place";
    fs::rename(home.path(info("b")), home.path("elsewhere"));
    home.makeLink(info("b"), home.path("elsewhere"));
    EXPECT_TRUE(trash->putBack(inTrash("b"), home.url("b")));
    EXPECT_TRUE(home.has(info("b"))) << "a link is no info file";
    fs::remove(home.path(info("c")));
    EXPECT_TRUE(trash->putBack(inTrash("c"), home.url("c"))) << "a missing one is no error";

    home.write("other/info/d.trashinfo", TrashInfo{home.path("d"), ""}.text());
    EXPECT_TRUE(trash->putBack(home.write("other/things/d"), home.url("d")));
    EXPECT_TRUE(home.has("other/info/d.trashinfo")) << "the item came from no Trash";
}

TEST_F(TrashTest, reachesItemsBeyondTheLongestPath) {
    const FileURL item = home.makeDeep(45, std::string(100, 'd'), "").appending("f");
    ASSERT_GT(item.path().size(), 4096U);
    EXPECT_EQ(trashed(item), "f");
    EXPECT_EQ(TrashInfo::parse(home.read(info("f"))).value_or(TrashInfo{}).path, item.path());
    EXPECT_TRUE(trash->putBack(inTrash("f"), item));
    EXPECT_FALSE(home.has(info("f")));
}

}
}
