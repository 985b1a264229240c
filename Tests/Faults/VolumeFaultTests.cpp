#include <DuplicatesKit/DuplicateScanner.h>
#include <ScanKit/ExcludedPrefixes.h>
#include <Support/OwnMount.h>
#include <Support/RemovalHome.h>
#include <Support/TreeState.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

/// Volumes of its own: this program runs in a mount namespace made for it.
class VolumeFault : public testing::Test {
  protected:
    /// The place in the Trash below the temporary home, or why the item is still where it was.
    std::string remove(const std::string& relative) const {
        const auto receipts = home.cleaner().moveToTrash({home.url(relative)}, home.url());
        if (receipts) {
            return receipts->front().trashed.path().substr(home.url().path().size() + 1);
        }
        const std::string start = "Could not move " + home.path(relative) + " to Trash: ";
        const std::string description = receipts.error().description();
        EXPECT_TRUE(description.starts_with(start)) << description;
        return description.substr(std::min(description.size(), start.size()));
    }
    static ino_t inode(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
        return status.st_ino;
    }
    static std::string personal(const std::string& volume) {
        return volume + "/.Trash-" + std::to_string(::geteuid());
    }
    static std::string shared(const std::string& volume) {
        return volume + "/.Trash/" + std::to_string(::geteuid());
    }

    const std::string noTrash = "The volume has no Trash; the item was not moved";
    RemovalHome home;
};

TEST_F(VolumeFault, noRoomForTheInfoFileLeavesTheItem) {
    const OwnMount disk = OwnMount::memory(home.path("disk"), "size=200k,nr_inodes=8");
    home.write("disk/item", "precious");
    home.makeFolder(personal("disk") + "/files");
    home.makeFolder(personal("disk") + "/info");
    std::ofstream filler(home.path("disk/filler"));
    filler << std::string(400000, 'x') << std::flush;
    EXPECT_FALSE(filler) << "the volume was to be full";
    const TreeState full = treeState(home.url().path());
    EXPECT_EQ(remove("disk/item"), "No space left on device");
    EXPECT_EQ(treeState(home.url().path()), full);

    fs::resize_file(home.path("disk/filler"), 0);
    for (char name = 'a'; std::ofstream(home.path("disk/") + name); ++name) {
    }
    const TreeState noInodes = treeState(home.url().path());
    EXPECT_EQ(remove("disk/item"), "No space left on device");
    EXPECT_EQ(treeState(home.url().path()), noInodes);
}

TEST_F(VolumeFault, noRoomForTheTrashItselfIsTold) {
    const OwnMount disk = OwnMount::memory(home.path("disk"), "nr_inodes=2");
    home.write("disk/item", "precious");
    EXPECT_EQ(remove("disk/item"), "No space left on device");
    EXPECT_EQ(home.read("disk/item"), "precious");
}

TEST_F(VolumeFault, readOnlyVolumeLeavesTheItem) {
    const OwnMount disk = OwnMount::memory(home.path("disk"));
    for (const bool hasTrash : {false, true}) {
        home.write("disk/item");
        disk.makeReadOnly();
        EXPECT_EQ(remove("disk/item"), "Read-only file system") << hasTrash;
        EXPECT_EQ(home.has(personal("disk")), hasTrash);
        EXPECT_TRUE(home.has("disk/item"));
        disk.makeWritable();
        EXPECT_EQ(remove("disk/item"), personal("disk") + "/files/item" + (hasTrash ? ".2" : ""));
    }
}

TEST_F(VolumeFault, sharedTrashIsUsedOnlyWhenItIsSafe) {
    const OwnMount disk = OwnMount::memory(home.path("disk"));
    home.makeFolder("disk/.Trash");
    home.write("disk/a");
    EXPECT_EQ(remove("disk/a"), personal("disk") + "/files/a") << "not sticky";
    fs::permissions(home.path("disk/.Trash"), fs::perms::all | fs::perms::sticky_bit);
    home.write("disk/sub/b");
    EXPECT_EQ(remove("disk/sub/b"), shared("disk") + "/files/b");
    EXPECT_TRUE(
        home.read(shared("disk") + "/info/b.trashinfo").starts_with("[Trash Info]\nPath=sub/b\n"));
    for (const std::string& folder : {shared("disk"), personal("disk")}) {
        EXPECT_EQ(remove(folder + "/files"), "The item is already in the Trash");
        EXPECT_EQ(remove(folder), "The folder contains the Trash");
    }
    EXPECT_EQ(remove("disk/.Trash"), "The folder contains the Trash");

    fs::rename(home.path("disk/.Trash"), home.path("disk/elsewhere"));
    home.makeLink("disk/.Trash", "elsewhere");
    home.write("disk/c");
    EXPECT_EQ(remove("disk/c"), personal("disk") + "/files/c") << "a link";
}

TEST_F(VolumeFault, linkInsteadOfATrashIsNeverWrittenThrough) {
    home.makeFolder("outside");
    const OwnMount disk = OwnMount::memory(home.path("disk"));
    home.write("disk/item", "precious");
    const auto expectRefused = [&](const std::string& link, const std::string& target) {
        home.makeLink(link, home.path(target));
        EXPECT_EQ(remove("disk/item"), noTrash) << link;
        EXPECT_EQ(home.read("disk/item"), "precious");
        EXPECT_TRUE(fs::is_empty(home.path(target)));
        fs::remove_all(home.path(personal("disk")));
    };
    home.makeFolder("disk/other");
    expectRefused(personal("disk"), "outside");
    expectRefused(personal("disk") + "/files", "disk/other");
    expectRefused(personal("disk") + "/info", "disk/other");
}

TEST_F(VolumeFault, linkInTheHomeTrashLeadsToTheNextPlace) {
    const OwnMount disk = OwnMount::memory(home.path("disk"));
    home.layout = HostLayout::freedesktop(home.url("disk/u"), {});
    home.trash = systemTrash(home.layout);
    home.makeLink("disk/u/.local/share/Trash/files", "../../../../x");
    home.makeFolder("disk/u/x");
    home.write("disk/u/item");
    EXPECT_EQ(remove("disk/u/item"), personal("disk") + "/files/item");
    EXPECT_TRUE(fs::is_empty(home.path("disk/u/x")));
}

TEST_F(VolumeFault, trashOfAnotherUserIsNotUsed) {
    const OwnMount disk = OwnMount::memory(home.path("disk"));
    home.makeFolder(personal("disk"));
    home.write("disk/item");
    if (::chown(home.path(personal("disk")).c_str(), 12345, 12345) != 0) {
        GTEST_SKIP() << "only root can make folders of another owner";
    }
    EXPECT_EQ(remove("disk/item"), noTrash);
    EXPECT_TRUE(home.has("disk/item"));
    EXPECT_TRUE(fs::is_empty(home.path(personal("disk"))));
}

TEST_F(VolumeFault, everyVolumeKeepsItsOwn) {
    const OwnMount disk = OwnMount::memory(home.path("disk"));
    home.write("disk/sub/item", "content");
    const ino_t before = inode(home.path("disk/sub/item"));
    EXPECT_EQ(remove("disk/sub/item"), personal("disk") + "/files/item");
    EXPECT_EQ(inode(home.path(personal("disk") + "/files/item")), before) << "never a copy";
    const FileURL trashed = home.url(personal("disk") + "/files/item");
    home.makeLink("way", "disk/sub");
    EXPECT_TRUE(home.trash->putBack(trashed, home.url("way/item")));
    EXPECT_EQ(inode(home.path("disk/sub/item")), before);
    EXPECT_TRUE(fs::is_empty(home.path(personal("disk") + "/info")))
        << "the info file tells of the same place without the link";
    EXPECT_FALSE(home.has(".local")) << "the home Trash had no part in it";
}

TEST_F(VolumeFault, aliasOfTheSameDeviceKeepsItsOwn) {
    home.write("data/item", "content");
    const OwnMount alias = OwnMount::alias(home.path("data"), home.path("alias"));
    home.write("alias/.Trash-" + std::to_string(::geteuid()));
    EXPECT_EQ(remove("alias/item"), noTrash);
    EXPECT_EQ(home.read("alias/item"), "content");
    EXPECT_TRUE(fs::is_empty(home.path(".local/share/Trash/info")));
    fs::remove(home.path(personal("alias")));
    EXPECT_EQ(remove("alias/item"), personal("alias") + "/files/item");
    EXPECT_EQ(remove(personal("data") + "/files/item"), "The item is already in the Trash")
        << "by whatever path";
}

TEST_F(VolumeFault, mountPointsStayWhereTheyAre) {
    const OwnMount disk = OwnMount::memory(home.path("folder/sub/disk"));
    home.write("folder/sub/disk/file", "mounted");
    const std::string contains = "The folder contains a mount point";
    EXPECT_EQ(remove("folder"), contains);
    EXPECT_EQ(remove("folder/sub"), contains);
    EXPECT_EQ(remove("folder/sub/disk"), "The item is a mount point");
    const OwnMount alias = OwnMount::alias(home.path("folder"), home.path("alias"));
    EXPECT_EQ(remove("alias/sub"), contains) << "renamed there, it would carry the mount along";
    EXPECT_EQ(home.read("folder/sub/disk/file"), "mounted");
    EXPECT_FALSE(home.has(".local"));
}

TEST_F(VolumeFault, mountsBelowALinkedRootAreLeftOutOfItsScan) {
    const OwnMount disk = OwnMount::memory(home.path("real/disk"));
    home.makeLink("way", "real");
    home.makeLink("all", "/");
    const auto excluded = [&](const std::string& root) {
        return excludedPrefixes(home.url(root), home.layout, *home.files);
    };
    EXPECT_THAT(excluded("way"), testing::Contains(home.path("way/disk")));
    EXPECT_THAT(excluded("all"),
                testing::IsSupersetOf({home.path("all/proc"), home.path("all/dev")}));
    EXPECT_THAT(excluded("way/disk"), testing::Not(testing::Contains(home.path("way/disk"))));
}

TEST_F(VolumeFault, whatIsMountedTwiceIsNoDuplicateOfItself) {
    home.write("a/file", "the same");
    home.write("a/sub/file", "the same");
    home.write("lone", "the same");
    home.write("alias of lone");
    const OwnMount whole = OwnMount::alias(home.path("a"), home.path("whole"));
    const OwnMount part = OwnMount::alias(home.path("a/sub"), home.path("part"));
    const OwnMount root = OwnMount::alias(home.path(""), home.path("root"));
    ASSERT_EQ(::mount(home.path("lone").c_str(), home.path("alias of lone").c_str(), nullptr,
                      MS_BIND, nullptr),
              0);
    DuplicateScanner scanner({1, true, {}}, home.files);
    const DuplicateScanResult result = scanner.scan(home.url());
    ASSERT_EQ(result.groups.size(), 1U);
    std::set<ino_t> different;
    for (const DuplicateFile& file : result.groups.front().files) {
        different.insert(inode(file.url.path()));
    }
    EXPECT_EQ(result.groups.front().files.size(), 3U);
    EXPECT_EQ(different.size(), 3U);
    ::umount2(home.path("alias of lone").c_str(), MNT_DETACH);
}

}
}
