#include <ScanKit/FullDiskAccess.h>
#include <Support/SyntheticFiles.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>

namespace tolvane {
namespace {

constexpr int readable = 0;
const HostLayout::Access threeProbes{{{"TCC.db", FileURL("/files/0")},
                                      {"Mail", FileURL("/files/1")},
                                      {"Safari history", FileURL("/files/2")}}};

/// The status when the probes end with these error numbers.
FullDiskAccessStatus statusWith(const std::array<int, 3>& codes) {
    std::vector<SyntheticItem> items;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        items.push_back(SyntheticItem::file(std::to_string(i), 1));
        if (codes[i] != readable) {
            items.back().valuesError = SystemError{codes[i]};
        }
    }
    return FullDiskAccess::status(threeProbes,
                                  SyntheticFiles("/files", SyntheticItem::folder("files", items)));
}

TEST(FullDiskAccess, isProvenByOneReadableFile) {
    const FullDiskAccessStatus first = statusWith({readable, EPERM, EIO});
    EXPECT_TRUE(first.granted);
    EXPECT_TRUE(first.confirmed);
    EXPECT_EQ(first.detail, "TCC.db is readable, so Full Disk Access is granted.");
    EXPECT_EQ(first.guidance(), first.detail);
    EXPECT_EQ(statusWith({EACCES, ENOENT, readable}).detail,
              "Safari history is readable, so Full Disk Access is granted.");
}

TEST(FullDiskAccess, isDisprovenByOneRefusal) {
    const FullDiskAccessStatus status = statusWith({EPERM, ENOENT, ENOENT});
    EXPECT_FALSE(status.granted);
    EXPECT_TRUE(status.confirmed);
    EXPECT_EQ(status.detail, "Full Disk Access is not granted (TCC.db: Operation not permitted).");
    EXPECT_EQ(status.guidance(),
              "Full Disk Access is not granted (TCC.db: Operation not permitted). Grant it in "
              "System Settings > Privacy & Security > Full Disk Access, then Recheck or Relaunch.");
    EXPECT_EQ(statusWith({EIO, EACCES, EPERM}).detail,
              "Full Disk Access is not granted (Mail: Operation not permitted, Safari history: "
              "Operation not permitted).");
}

TEST(FullDiskAccess, staysOpenWhenNoProbeAnswers) {
    const FullDiskAccessStatus status = statusWith({ENOENT, ENOENT, ENOENT});
    EXPECT_FALSE(status.granted);
    EXPECT_FALSE(status.confirmed);
    EXPECT_EQ(status.detail, "Could not confirm Full Disk Access (probes unavailable: TCC.db, "
                             "Mail, Safari history).");
    EXPECT_EQ(statusWith({EIO, ENOENT, ELOOP}).detail,
              "Could not confirm Full Disk Access (probes unavailable: Mail, TCC.db: Input/output "
              "error, Safari history: Too many levels of symbolic links).")
        << "what is missing comes first";
}

TEST(FullDiskAccess, opensTheFilesOfTheHomeItIsGiven) {
    const TemporaryHome home;
    const HostLayout layout = HostLayout::darwin(home.url());
    const auto files = systemFileManager(layout);
    EXPECT_FALSE(FullDiskAccess::status(layout.access, *files).confirmed);
    home.write("Library/Safari/History.db");
    EXPECT_EQ(FullDiskAccess::status(layout.access, *files).detail,
              "Safari history is readable, so Full Disk Access is granted.");
    home.makeFolder("Library/Mail");
    EXPECT_EQ(FullDiskAccess::status(layout.access, *files).detail,
              "Mail is readable, so Full Disk Access is granted.")
        << "a folder is opened like a file, and the first one decides";
}

}
}
