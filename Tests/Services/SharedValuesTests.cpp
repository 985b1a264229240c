#include <Services/QuickLocation.h>
#include <Services/ReviewItem.h>
#include <Services/Throttle.h>

#include <gtest/gtest.h>

namespace tolvane {
namespace {

TEST(Throttle, letsOneEventThroughPerInterval) {
    Date time = 5;
    Throttle throttle([&] { return time; });
    EXPECT_TRUE(throttle.allow(1e9)) << "the first one always";
    time = 5.0625;
    EXPECT_FALSE(throttle.allow(0.125));
    time = 5.125;
    EXPECT_TRUE(throttle.allow(0.125)) << "the refused one does not count";
    EXPECT_FALSE(throttle.allow(0.125));
    EXPECT_TRUE(throttle.allow(0));
}

TEST(QuickLocation, listsThePlacesOfTheLayoutInOrder) {
    HostLayout layout;
    layout.quickLocations = {{"Home", "house", FileURL("/h")}, {"Disk", "drive", FileURL("/")}};
    const std::vector<QuickLocation> locations = quickLocations(layout);
    ASSERT_EQ(locations.size(), 2U);
    EXPECT_EQ(locations[0].title + locations[0].symbol, "Homehouse");
    EXPECT_EQ(locations[1].url, FileURL("/"));
    EXPECT_NE(locations[0].id, locations[1].id);
}

TEST(ReviewItem, describesAScannedNodeWithAllBelowIt) {
    using Kind = FileNode::Kind;
    const FileNode file(FileURL("/d/f"), "f", Kind::regular, 4096, 10, false, {}, {}, 0, 0, 0,
                        false);
    const FileNode folder(FileURL("/d"), "d", Kind::directory, 0, 0, false, {}, {file}, 1000, 1, 0,
                          false);
    EXPECT_EQ(reviewItem(folder), (ReviewItem{text(folder.id()), "d", FileURL("/d"), 5096, true}));

    const FileNode link(FileURL("/l"), "l", Kind::symlink, 0, 3, false, {}, {}, 0, 0, 0, false);
    EXPECT_FALSE(reviewItem(link).isDirectory) << "whatever it leads to";
}

}
}
