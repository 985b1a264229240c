#include <HostKit/Text.h>
#include <Support/OddNames.h>
#include <Support/OtherPrograms.h>
#include <Support/RemovalHome.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace tolvane {
namespace {

/// The names that another program can handle at all.
using Suits = bool (*)(const std::string& name);

bool always(const std::string&) {
    return true;
}

/// The others do not shorten a name to make room for that of its info file.
bool leavesRoom(const std::string& name) {
    return name.size() <= 240;
}

/// Items of odd names, in the Trash of a temporary home or about to go there.
class OtherPrograms : public testing::Test {
  protected:
    void make(Suits suits) {
        for (const std::string& name : oddNames()) {
            if (suits(name)) {
                items.push_back(home.write("odd/" + name, name));
            }
        }
        before = treeState(home.path("odd"));
    }
    void moveAll() {
        const auto moved = home.cleaner().moveToTrash(items, home.url());
        ASSERT_TRUE(moved) << moved.error().description();
        ASSERT_TRUE(treeState(home.path("odd")).empty());
    }
    /// Puts back what is in the Trash by what the info files tell of it.
    void putBackTheRest() {
        EXPECT_TRUE(home.cleaner().restore(receiptsFromTrash(home.layout)).empty());
        EXPECT_TRUE(trashIsEmpty(home.layout));
    }
    std::vector<std::string> paths() const {
        std::vector<std::string> list;
        for (const FileURL& item : items) {
            list.push_back(item.path());
        }
        std::sort(list.begin(), list.end());
        return list;
    }

    RemovalHome home;
    std::vector<FileURL> items;
    TreeState before;
};

TEST_F(OtherPrograms, gioListsAndRestoresWhatWeMoved) {
    const std::optional<Gio> gio = Gio::find(home.url().path());
    if (!gio) {
        GTEST_SKIP() << "gio with gvfs is not installed";
    }
    make(always);
    moveAll();
    EXPECT_EQ(gio->originalPaths(), paths());
    gio->restoreAll();
    EXPECT_GE(treeState(home.path("odd")).size() + 1, before.size());
    // Some versions write the escapes of their listing into the names, one of which grows too long.
    putBackTheRest();
    EXPECT_EQ(withoutEscapes(treeState(home.path("odd"))), before);
}

TEST_F(OtherPrograms, weRestoreWhatGioMoved) {
    const std::optional<Gio> gio = Gio::find(home.url().path());
    if (!gio) {
        GTEST_SKIP() << "gio with gvfs is not installed";
    }
    make(leavesRoom);
    gio->trash(paths());
    EXPECT_TRUE(treeState(home.path("odd")).empty());
    putBackTheRest();
    EXPECT_EQ(treeState(home.path("odd")), before);
}

TEST_F(OtherPrograms, trashCliListsAndRestoresWhatWeMoved) {
    const std::optional<TrashCli> trashCli = TrashCli::find(home.url().path());
    if (!trashCli) {
        GTEST_SKIP() << "trash-cli is not installed";
    }
    make([](const std::string& name) { return isValidUTF8(name); });
    moveAll();
    EXPECT_EQ(trashCli->originalPaths(home.path("odd")), paths());
    trashCli->restoreAll(items.size());
    EXPECT_EQ(treeState(home.path("odd")), before);
    EXPECT_TRUE(trashIsEmpty(home.layout));
}

TEST_F(OtherPrograms, weRestoreWhatTrashCliMoved) {
    const std::optional<TrashCli> trashCli = TrashCli::find(home.url().path());
    if (!trashCli) {
        GTEST_SKIP() << "trash-cli is not installed";
    }
    make([](const std::string& name) { return leavesRoom(name) && isValidUTF8(name); });
    trashCli->trash(paths());
    EXPECT_TRUE(treeState(home.path("odd")).empty());
    putBackTheRest();
    EXPECT_EQ(treeState(home.path("odd")), before);
}

}
}
