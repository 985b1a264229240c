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

/// Whether it is granted, whether that is certain, and what is told.
std::string told(const std::array<int, 3>& codes) {
    const FullDiskAccessStatus status = statusWith(codes);
    return std::string(status.granted ? "granted" : "not granted") +
           (status.confirmed ? ", certainly: " : ", perhaps: ") + status.detail;
}

TEST(FullDiskAccess, isProvenByOneReadableFileAndDisprovenByOneRefusal) {
    EXPECT_EQ(told({readable, EPERM, EIO}),
              "granted, certainly: TCC.db is readable, so Full Disk Access is granted.");
    EXPECT_EQ(told({EACCES, ENOENT, readable}),
              "granted, certainly: Safari history is readable, so Full Disk Access is granted.");
    const std::string refused = "not granted, certainly: Full Disk Access is not granted (";
    EXPECT_EQ(told({EPERM, ENOENT, ENOENT}), refused + "TCC.db: Operation not permitted).");
    EXPECT_EQ(told({EIO, EACCES, EPERM}),
              refused + "Mail: Operation not permitted, Safari history: Operation not permitted).");
    const std::string unknown = "not granted, perhaps: Could not confirm Full Disk Access (probes "
                                "unavailable: ";
    EXPECT_EQ(told({ENOENT, ENOENT, ENOENT}), unknown + "TCC.db, Mail, Safari history).");
    EXPECT_EQ(told({EIO, ENOENT, ELOOP}),
              unknown + "Mail, TCC.db: Input/output error, Safari history: Too many levels of "
                        "symbolic links).")
        << "what is missing comes first";
    const FullDiskAccessStatus granted = statusWith({readable, EPERM, EIO});
    EXPECT_EQ(granted.guidance(), granted.detail);
    const FullDiskAccessStatus open = statusWith({ENOENT, ENOENT, ENOENT});
    EXPECT_EQ(open.guidance(), open.detail + " Grant it in System Settings > Privacy & Security > "
                                             "Full Disk Access, then Recheck or Relaunch.");
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
