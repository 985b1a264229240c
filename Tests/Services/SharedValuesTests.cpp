#include <Services/CountFormat.h>
#include <Services/NotCounted.h>
#include <Services/PurgeResult.h>
#include <Services/ReviewItem.h>
#include <Services/ThinningTarget.h>
#include <Services/Throttle.h>
#include <Support/SyntheticFiles.h>

#include <gmock/gmock.h>

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

TEST(ThinningTarget, prefersTheVolumeOfTheUsersFiles) {
    const std::vector<LocalSnapshot> system{{"2024-03-01-101500", "/", true}};
    const std::vector<LocalSnapshot> data{{"2024-03-01-101500", "/data", true}};
    const auto with = [](Bytes available, Bytes important) {
        return VolumeStats{"", 9'000'000'000, available, important, 0};
    };
    using Target = ThinningTarget;
    EXPECT_FALSE(Target::of({}, std::nullopt));
    EXPECT_EQ(Target::of({system, {}}, std::nullopt), (Target{"/", 1'000'000'000, 4}));
    EXPECT_EQ(Target::of({system, data}, with(1, 5'000'000'001))->bytes, 5'000'000'000);
    EXPECT_EQ(Target::of({system, data}, with(1, 200'000'001)), (Target{"/data", 1'000'000'000}));
    EXPECT_EQ(Target::of({system, data}, with(5'000'000'000, 0))->bytes, 1'000'000'000);
}

TEST(PurgeResult, tellsOnlyOfMemoryThatWasWon) {
    const auto text = [](Bytes before, Bytes after) {
        return PurgeResult::between(MemoryStats{.free = before}, MemoryStats{.inactive = after})
            .text();
    };
    EXPECT_EQ(text(5, 1'500'005), "Released 1.5 MB of memory");
    EXPECT_EQ(text(5, 5) + text(5, 4),
              text(1, 0) + "Purge completed; available memory is unchanged");
    EXPECT_EQ(PurgeResult::between(MemoryStats{.speculative = 7}, std::nullopt).delta, -7);
}

TEST(CountFormat, groupsDigitsAndCountsNouns) {
    using CountFormat::counted;
    EXPECT_EQ(counted(0, "file") + counted(1, "file"), "0 files1 file");
    EXPECT_EQ(counted(999, "a") + counted(1000, "a"), "999 as1,000 as");
    EXPECT_EQ(CountFormat::grouped(1234567) + CountFormat::grouped(-123456), "1,234,567-123,456");
}

TEST(NotCounted, namesWhatLiesBelowTheRootAndWasNotEntered) {
    const std::vector<std::string> excluded{"/a/y", "/a/no", "/b", "/a/x"};
    const SyntheticFiles files(
        "", SyntheticItem::folder(
                "", {SyntheticItem::folder("a", {SyntheticItem::file("x", 1),
                                                 SyntheticItem::link("y", "/nowhere", 1)}),
                     SyntheticItem::folder("b")}));
    using testing::ElementsAre;
    EXPECT_THAT(notEntered(FileURL("/a"), excluded, files),
                ElementsAre(FileURL("/a/y"), FileURL("/a/x")));
    EXPECT_THAT(notEntered(FileURL("/"), excluded, files),
                ElementsAre(FileURL("/a/y"), FileURL("/b"), FileURL("/a/x")));
    EXPECT_THAT(notEntered(FileURL("/b"), excluded, files), testing::IsEmpty());
}

}
}
