#include <HostKit/HostLayout.h>
#include <PerformanceKit/SnapperTable.h>
#include <PerformanceKit/SnapshotScanner.h>
#include <Support/MadeUpTool.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using testing::ElementsAre;

/// The ids, with "*" behind what may be deleted.
std::vector<std::string> described(const std::vector<LocalSnapshot>& snapshots) {
    std::vector<std::string> lines;
    for (const LocalSnapshot& snapshot : snapshots) {
        lines.push_back(snapshot.id() + (snapshot.purgeable.value() ? "*" : ""));
    }
    return lines;
}

TEST(SnapshotScanner, readsNamesAndWhatIsPurgeable) {
    const auto names = SnapshotScanner::parsePurgeableNames(
        "+-- A\n|\n   Purgeable: yes\n  Name:   a.2024-03-01-101500.local \n Purgeable:  YES\r\n"
        "Name: b\nPurgeable: no\n Purgeable: yes, it is\nName: 2024-03-02-090000\nSize: 1\n"
        "Purgeable: Yes");
    EXPECT_THAT(names, ElementsAre("2024-03-02-090000", "a.2024-03-01-101500.local"));
    EXPECT_THAT(described(SnapshotScanner::parse("Snapshots for volume group /:\n\n"
                                                 "\ta.2024-03-01-101500.local\n2024-03-02-090000\n"
                                                 "b.2024-03-01-101500 1999-01-01-000000\n"
                                                 "2024-3-01-101500\nx12024-03-03-1015009\n",
                                                 "/", names)),
                ElementsAre("/-2024-03-03-101500", "/-2024-03-02-090000*", "/-2024-03-01-101500*",
                            "/-2024-03-01-101500"));
}

TEST(SnapshotScanner, readsTheTableOfSnapper) {
    const std::string table = "number,date,cleanup\n0,,\n1,2026-11-21 05:46:58,timeline\n"
                              "2,2026-11-20 05:46:58,\n3,,number\n-4,2026-11-21 05:46:58,\n"
                              "x,2026-11-21 05:46:58,\n5,2026-11-21T05:46:58,\n6\n7,yesterday,\n"
                              "8,2026-11-21 05:46:5x,\r\n9,2026-11-19 00:00:00";
    EXPECT_EQ(SnapperTable::names(table), "com.apple.TimeMachine.2026-11-21-054658.1\n"
                                          "com.apple.TimeMachine.2026-11-20-054658.2\n"
                                          "com.apple.TimeMachine.2026-11-19-000000.9\n");
    EXPECT_THAT(SnapperTable::purgeability(table),
                testing::StartsWith("Name: com.apple.TimeMachine.2026-11-21-054658.1\n"
                                    "Purgeable: Yes\nName: com.apple.TimeMachine.2026-11-20-054658"
                                    ".2\nPurgeable: No\n"));
}

TEST(SnapshotScanner, runsTheToolsOfEachSystemInOrder) {
    const TemporaryHome home;
    const std::string told = "echo \"$*\" >>" + home.path("order") + "; ";
    SnapshotTools tools = SnapshotTools::darwin();
    tools.system.list.executable = tools.data.list.executable =
        madeUpTool(home, told + "echo a.2024-03-01-101500; exit 3");
    tools.system.listPurgeable->executable = tools.data.listPurgeable->executable = madeUpTool(
        home, told + "[ $3 = / ] || echo 'Name: a.2024-03-01-101500\nPurgeable: yes'", "diskutil");
    EXPECT_THAT(described(SnapshotScanner::scan(tools).all()),
                ElementsAre("/-2024-03-01-101500", "/System/Volumes/Data-2024-03-01-101500*"));
    EXPECT_EQ(home.read("order"),
              "listlocalsnapshots /\nlistlocalsnapshots /System/Volumes/Data\n"
              "apfs listSnapshots /\napfs listSnapshots /System/Volumes/Data\n");

    tools = SnapshotTools::freedesktop();
    tools.system.list.executable =
        madeUpTool(home, "[ \"$*\" = '--csvout -c root list --columns number,date,cleanup' ] && "
                         "echo 7,2026-11-21 05:46:58,number");
    tools.data.list.executable = home.url("none");
    EXPECT_THAT(described(SnapshotScanner::scan(tools).all()), ElementsAre("/-2026-11-21-054658*"));
    tools.system.list.executable = madeUpTool(home, "trap '' TERM; exec sleep 100");
    int asked = 0;
    EXPECT_EQ(SnapshotScanner::scan(tools, [&] { return ++asked > 2; }), SnapshotInventory());
}

}
}
