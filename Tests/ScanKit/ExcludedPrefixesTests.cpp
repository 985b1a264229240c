#include <ScanKit/ExcludedPrefixes.h>
#include <ScanKit/FileTreeScanner.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::Not;

class ExcludedPrefixes : public ::testing::Test {
  protected:
    std::vector<std::string> with(const HostLayout& layout, const std::string& root) const {
        return excludedPrefixes(FileURL(root), layout, mounts);
    }

    const std::vector<std::string> fixed = FileTreeScanner::defaultExcludedPrefixes();
    const HostLayout darwin = HostLayout::darwin(FileURL("/Users/ada"));
    const HostLayout freedesktop = HostLayout::freedesktop(FileURL("/home/ada"), {});
    const MountTable mounts = MountTable::parse("28 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                                "29 28 0:5 / /dev rw - devtmpfs udev rw\n"
                                                "30 28 0:21 / /proc rw - proc proc rw\n"
                                                "31 28 0:48 / /srv/nas rw - nfs4 nas:/x rw\n");
};

TEST_F(ExcludedPrefixes, addsMountsWhereTheSystemHasAMountTable) {
    std::vector<std::string> expected = fixed;
    EXPECT_EQ(with(darwin, "/"), expected);
    expected.insert(expected.end(), {"/proc", "/srv/nas"});
    EXPECT_EQ(with(freedesktop, "/"), expected) << "\"/dev\" is fixed already";
    EXPECT_EQ(with(freedesktop, "/home/ada"), fixed);
}

TEST_F(ExcludedPrefixes, nameMountsAsTheScanMeetsThem) {
    HostLayout atomic = freedesktop;
    atomic.homeAlias = "/var/home";
    const MountTable table =
        MountTable::parse("28 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
                          "29 28 8:2 / /var/home rw - ext4 /dev/sda2 rw\n"
                          "30 29 0:48 / /var/home/ada/nas rw - nfs4 nas:/ rw\n");
    EXPECT_EQ(excludedPrefixes(FileURL("/home/ada"), atomic, table).back(), "/home/ada/nas");
    EXPECT_EQ(excludedPrefixes(FileURL("/"), atomic, table).back(), "/var/home/ada/nas")
        << "\"/home\" is only a link there";
}

TEST_F(ExcludedPrefixes, hideNothingThatContainsTheRoot) {
    const auto others = with(darwin, "/Volumes/Disk");
    EXPECT_EQ(others.size(), fixed.size() - 1);
    EXPECT_THAT(others, Not(Contains("/Volumes")));
    EXPECT_THAT(with(darwin, "/Volumes"), Not(Contains("/Volumes")));
    EXPECT_THAT(with(darwin, "/Volumes2"), Contains("/Volumes"));
    EXPECT_THAT(with(darwin, "/private"), Contains("/private/var/vm"));
    EXPECT_THAT(with(freedesktop, "/dev/shm"), Each(Not("/dev")));
    EXPECT_THAT(excludedPrefixes(FileURL("/proc/1"), freedesktop, MountTable({}, false)),
                Each(Not("/proc")));
}

}
}
