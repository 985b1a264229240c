#include <ControllerSupport/ControllerHome.h>
#include <Controllers/ScanStatistics.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using Expected = ScanStatistics::Expected;

FileURL root(int number) {
    return FileURL("/root/" + std::to_string(100 + number));
}

TEST(ScanStatistics, remembersFortyRootsAcrossStarts) {
    const ControllerHome home;
    const FileURL file = home.url("statistics.conf");
    for (int number = 0; number <= 40; ++number) {
        UserDefaults defaults(file);
        ScanStatistics(defaults).save(root(number), {number + 1, 1'000'000'000'000});
    }
    UserDefaults defaults(file);
    ScanStatistics statistics(defaults);
    EXPECT_EQ(defaults.map("scanStats.files").size(), 40);
    EXPECT_EQ(defaults.map("scanStats.bytes").size(), 40);
    EXPECT_FALSE(statistics.expected(root(0))) << "the first in the map's order goes";
    EXPECT_EQ(statistics.expected(root(1)), (Expected{2, 1'000'000'000'000}));
    EXPECT_EQ(statistics.expected(root(40)), (Expected{41, 1'000'000'000'000}));
    statistics.save(root(40), {7, 8});
    EXPECT_EQ(statistics.expected(root(40)), (Expected{7, 8}));
    EXPECT_EQ(defaults.map("scanStats.files").size(), 40);
}

TEST(ScanStatistics, expectsNothingWithoutTwoPositiveFigures) {
    ControllerHome home;
    ScanStatistics statistics(home.defaults);
    EXPECT_FALSE(statistics.expected(root(1)));
    statistics.save(root(1), {0, 5});
    statistics.save(root(2), {5, 0});
    EXPECT_FALSE(statistics.expected(root(1)));
    EXPECT_FALSE(statistics.expected(root(2)));

    // Paths that are no text would be mistaken for one another.
    statistics.save(FileURL("/bad\xff"), {5, 5});
    EXPECT_FALSE(statistics.expected(FileURL("/bad\xff")));
    EXPECT_FALSE(statistics.expected(FileURL("/bad\xfe")));

    home.defaults.set("scanStats.files", QVariantMap{{"/a", "many"}, {"/b", 1e300}});
    home.defaults.set("scanStats.bytes", QVariantMap{{"/a", QVariant::fromValue<qlonglong>(5)},
                                                     {"/b", QVariant::fromValue<qlonglong>(5)}});
    EXPECT_FALSE(statistics.expected(FileURL("/a")));
    EXPECT_FALSE(statistics.expected(FileURL("/b")));
}

}
}
