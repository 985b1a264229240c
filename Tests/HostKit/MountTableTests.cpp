#include <HostKit/MountTable.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view desktop =
    R"(22 28 0:20 / /sys rw,nosuid shared:7 - sysfs sysfs rw
23 28 0:21 / /proc rw,nosuid shared:14 - proc proc rw
24 28 0:5 / /dev rw,nosuid shared:2 - devtmpfs udev rw,size=8013448k
25 24 0:22 / /dev/pts rw,nosuid shared:3 - devpts devpts rw,gid=5
26 28 0:23 / /run rw,nosuid shared:5 - tmpfs tmpfs rw,size=1610440k
28 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw
39 28 0:61 / /boot/efi rw,relatime shared:60 - autofs systemd-1 rw
40 39 259:1 / /boot/efi rw,relatime shared:62 - vfat /dev/nvme0n1p1 rw
41 28 259:3 / /home rw,relatime shared:64 - ext4 /dev/nvme0n1p3 rw
42 28 7:3 / /snap/core22/1122 ro,nodev shared:66 - squashfs /dev/loop3 ro
43 28 259:2 /var/lib/build /srv/build rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw
44 28 0:48 / /srv/nas rw,relatime shared:70 - nfs4 nas:/export rw,vers=4.2
45 28 0:50 / /var/lib/docker/overlay2/ab/merged rw - overlay overlay rw,lowerdir=/x
46 26 8:17 / /run/media/ada/My\040Stick rw,nosuid shared:72 - exfat /dev/sdb1 rw
47 28 8:33 / /mnt/disk rw,relatime shared:74 - ext4 /dev/sdc1 rw
48 28 7:9 / /srv/image rw,relatime shared:76 - ext4 /dev/loop9 rw
49 41 0:60 / /home/ada/.cache/doc rw,nosuid - fuse.portal portal rw
50 28 8:49 / /srv/windows rw,relatime shared:78 - fuseblk /dev/sdd1 rw
51 50 0:62 / /srv/windows/tmp rw - tmpfs tmpfs rw
)";

constexpr std::string_view snapshots = R"(28 1 0:25 /@ / rw,relatime shared:1 - btrfs /dev/sda2 rw
30 28 0:25 /@home /home rw,relatime shared:3 - btrfs /dev/sda2 rw
31 28 0:25 / /btrfs rw,relatime shared:4 - btrfs /dev/sda2 rw
32 28 0:25 /@snapshots /.snapshots rw,relatime shared:5 - btrfs /dev/sda2 rw
33 28 0:25 /@/old/root /srv/old rw,relatime shared:6 - btrfs /dev/sda2 rw
34 28 0:25 /@home2 /srv/other rw,relatime shared:6 - btrfs /dev/sda2 rw
35 28 8:1 / /boot/efi rw,relatime shared:7 - vfat /dev/sda1 rw
36 30 0:25 /@home/ada/src /home/ada/bound rw,relatime shared:3 - btrfs /dev/sda2 rw
37 28 0:44 / /data rw,relatime shared:8 - btrfs /dev/sdb rw
)";

std::vector<std::string> excluded(std::string_view table, const std::string& root) {
    return MountTable::parse(table).excludedMounts(FileURL(root));
}

TEST(MountTable, readsItsFieldsWithTheirEscapes) {
    const MountTable table = MountTable::parse("36 35 8:19 /a\\134b /m\\040n\\011o\\012p\\043 rw "
                                               "shared:1 master:2 - ext4 /dev/x\\040y rw\n"
                                               "37 35 0:7 / /cut\\04 rw - tmpfs  rw\n");
    ASSERT_EQ(table.mounts().size(), 2U);
    const Mount& mount = table.mounts().front();
    EXPECT_EQ(mount.id, 36);
    EXPECT_EQ(mount.major, 8U);
    EXPECT_EQ(mount.minor, 19U);
    EXPECT_EQ(mount.root, "/a\\b");
    EXPECT_EQ(mount.mountPoint, "/m n\to\np#");
    EXPECT_EQ(mount.type, "ext4");
    EXPECT_EQ(mount.source, "/dev/x y");
    EXPECT_EQ(table.mounts().back().mountPoint, "/cut\\04");
    EXPECT_EQ(table.mounts().back().source, "");
}

TEST(MountTable, dropsLinesThatAreNone) {
    const MountTable table = MountTable::parse("\n36 35 8:19 / / rw ext4 /dev/x rw\n"
                                               "x 35 8:19 / / rw - ext4 /dev/x rw\n"
                                               "36 35 819 / / rw - ext4 /dev/x rw\n"
                                               "36 35 8:-1 / / rw - ext4 /dev/x rw\n"
                                               "36 35 8:1 / relative rw - ext4 /dev/x rw\n"
                                               "36 35 - ext4\n - \n"
                                               "40 35 8:1 / /kept rw - ext4 /dev/x rw");
    ASSERT_EQ(table.mounts().size(), 1U);
    EXPECT_TRUE(table.isReadable());
    EXPECT_NE(table.withID(40), nullptr);
    EXPECT_EQ(table.withID(36), nullptr);
    EXPECT_EQ(table.covering("/elsewhere"), nullptr);
}

TEST(MountTable, findsWhatCoversAPath) {
    const MountTable table = MountTable::parse(desktop);
    EXPECT_EQ(table.covering("/home/ada")->id, 41);
    EXPECT_EQ(table.covering("/homes")->id, 28);
    EXPECT_EQ(table.covering("/boot/efi/EFI")->id, 40) << "the later of two mounts";
    EXPECT_EQ(table.covering("/")->id, 28);
    EXPECT_TRUE(table.isMountPoint("/run/media/ada/My Stick"));
    EXPECT_FALSE(table.isMountPoint("/home/ada"));
    EXPECT_TRUE(table.hasMountBelow("/home/ada"));
    EXPECT_TRUE(table.hasMountBelow("/"));
    EXPECT_FALSE(table.hasMountBelow("/srv/nas")) << "a mount on it is not below it";
    EXPECT_FALSE(table.hasMountBelow("/ho"));
}

TEST(MountTable, leavesOutWhatIsOnNoDiskOfThisMachineOrSeenTwice) {
    EXPECT_THAT(excluded(desktop, "/"),
                ElementsAre("/dev", "/run", "/sys", "/proc", "/srv/nas", "/mnt/disk", "/srv/build",
                            "/srv/image", "/srv/windows/tmp", "/snap/core22/1122",
                            "/home/ada/.cache/doc", "/var/lib/docker/overlay2/ab/merged"));
    EXPECT_THAT(excluded(desktop, "/home"), ElementsAre("/home/ada/.cache/doc"));
}

TEST(MountTable, hidesNothingOfWhatWasChosen) {
    for (const char* const root :
         {"/srv/nas", "/srv/build", "/run/media/ada/My Stick", "/mnt/disk/deep",
          "/snap/core22/1122", "/dev/pts", "/srv/image"}) {
        EXPECT_THAT(excluded(desktop, root), IsEmpty()) << root;
    }
    EXPECT_THAT(excluded(desktop, "/mnt"), ElementsAre("/mnt/disk"));
    EXPECT_THAT(excluded(desktop, "/run"), ElementsAre("/run/media/ada/My Stick"));
}

TEST(MountTable, leavesRemovableMediaOutWhereverTheyLie) {
    std::vector<Mount> mounts = MountTable::parse(desktop).mounts();
    for (Mount& mount : mounts) {
        mount.isRemovable = mount.mountPoint == "/srv/windows";
    }
    const MountTable table(mounts);
    EXPECT_THAT(table.excludedMounts(FileURL("/srv")),
                ElementsAre("/srv/nas", "/srv/image", "/srv/windows"));
    EXPECT_THAT(table.excludedMounts(FileURL("/srv/windows")), ElementsAre("/srv/windows/tmp"));
}

TEST(MountTable, countsABtrfsFileSystemOnce) {
    EXPECT_THAT(excluded(snapshots, "/"),
                ElementsAre("/btrfs", "/srv/old", "/.snapshots", "/home/ada/bound",
                            "/data/.snapshots", "/home/.snapshots", "/srv/other/.snapshots"));
    EXPECT_THAT(excluded(snapshots, "/btrfs"), ElementsAre("/btrfs/.snapshots"));
    EXPECT_THAT(excluded(snapshots, "/home/ada"), ElementsAre("/home/ada/bound"));
    EXPECT_THAT(excluded(snapshots, "/home/ada/bound"), ElementsAre("/home/ada/bound/.snapshots"));
    EXPECT_THAT(excluded(snapshots, "/home/eve"), IsEmpty());
}

TEST(MountTable, seesABindOfTheChosenFolderInItself) {
    const std::string_view table = "28 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                   "29 28 8:1 /a/b /a/b/copy rw - ext4 /dev/sda1 rw\n"
                                   "30 28 8:1 /a/bc /a/b/other rw - ext4 /dev/sda1 rw\n"
                                   "31 28 8:1 /a/bc/d /a/b/again rw - ext4 /dev/sda1 rw\n";
    EXPECT_THAT(excluded(table, "/a/b"), ElementsAre("/a/b/copy", "/a/b/other"))
        << "of two binds of one folder the one with the shorter path is counted";
}

TEST(MountTable, fallsBackToTheUsualPlacesWhenUnreadable) {
    const MountTable unreadable({}, false);
    EXPECT_THAT(unreadable.excludedMounts(FileURL("/")), ElementsAre("/proc", "/sys", "/run"));
    EXPECT_THAT(unreadable.excludedMounts(FileURL("/run/media/x")), ElementsAre("/proc", "/sys"));
    EXPECT_THAT(MountTable().excludedMounts(FileURL("/")), IsEmpty());
}

TEST(MountTable, letsLocalVolumesHoldATrash) {
    const MountTable table = MountTable::parse(desktop);
    for (const int id : {28, 41, 42, 46, 48, 50, 51}) {
        EXPECT_TRUE(table.withID(id)->mayHoldTrash()) << table.withID(id)->type;
    }
    EXPECT_TRUE(MountTable::parse(snapshots).withID(30)->mayHoldTrash());
    for (const int id : {22, 23, 24, 39, 44, 45, 49}) {
        EXPECT_FALSE(table.withID(id)->mayHoldTrash()) << table.withID(id)->type;
    }
}

}
}
