#include <Support/TemporaryHome.h>

#include <BrightpassKit/BrightpassScanner.h>
#include <gmock/gmock.h>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<std::string> stages = {"Measuring junk", "Inventorying applications",
                                         "Looking for duplicates", "Summarizing"};

class Check : public testing::Test {
  protected:
    Check() {
        home.write(".cache/thumbnails/a", std::string(5'000, 'a'));
        home.write(".local/share/Trash/files/b", "b");
        for (const char* const app :
             {"org.example.small", "org.example.large", "org.example.none"}) {
            home.makeFolder(std::string("Applications/") + app + ".AppDir");
        }
        home.write(".config/org.example.small/settings", "s");
        home.write(".local/share/org.example.large/data", std::string(40'000, 'd'));
        for (const char* const copy : {"Downloads/one", "Downloads/two", "Elsewhere/three"}) {
            home.write(copy, std::string(1'024, 'c'));
        }
        home.write("Downloads/tiny", std::string(1'023, 'c'));
        home.write("Downloads/tiny too", std::string(1'023, 'c'));
    }

    /// Cancelled at the first question of the stage at this position, if any.
    BrightpassReport run(const BrightpassOptions& options, std::size_t cancelledStage = 9) {
        told.clear();
        return BrightpassScanner::of(layout, systemFileManager(layout), options.duplicatesRoot)
            .scan(
                options, [this](const std::string& stage) { told.push_back(stage); },
                [this, cancelledStage] { return told.size() > cancelledStage; });
    }

    TemporaryHome home;
    HostLayout layout = HostLayout::freedesktop(home.url(), {{"XDG_DATA_DIRS", home.path("none")}});
    std::vector<std::string> told;
};

TEST_F(Check, measuresJunkLeftoversAndDuplicates) {
    const BrightpassReport report = run({layout.junkRoots, layout.locations.downloads, false});
    EXPECT_EQ(told, stages);
    ASSERT_EQ(report.junk.size(), 5U);
    EXPECT_EQ(report.junk[0], (JunkCategory{"Caches", home.url(".cache"), 8'192}));
    EXPECT_EQ(report.junk[1].name, "Logs");
    EXPECT_FALSE(report.junk[1].exists());
    EXPECT_EQ(report.junk[4], (JunkCategory{"Trash", home.url(".local/share/Trash"), 4'096}));
    ASSERT_EQ(report.apps.size(), 2U);
    EXPECT_EQ(report.apps[0].app.bundleID, "org.example.large");
    EXPECT_EQ(report.apps[0].bytes(), 40'960);
    EXPECT_EQ(report.apps[1].app.bundleID, "org.example.small");
    ASSERT_TRUE(report.duplicates);
    EXPECT_EQ(report.duplicates->duplicateFiles(), 2);
    EXPECT_EQ(report.duplicateBytes(), 1'024);
    EXPECT_EQ(report.reclaimableBytes(), report.junkBytes() + 40'960 + 4'096 + 1'024);
    EXPECT_GT(report.generatedAt, 0);
}

TEST_F(Check, namesFoldersByTheirPosition) {
    std::vector<FileURL> roots(5, home.url("Elsewhere"));
    roots.push_back(home.url("Downloads"));
    const BrightpassReport report = run({roots, std::nullopt, false});
    EXPECT_EQ(told, stages);
    std::vector<std::string> names;
    for (const JunkCategory& category : report.junk) {
        names.push_back(category.name);
    }
    EXPECT_THAT(names, ElementsAre("Caches", "Logs", "Derived Data", "Crash reports", "Trash",
                                   "Downloads"));
    EXPECT_FALSE(report.duplicates);
    EXPECT_EQ(report.duplicateBytes(), 0);
}

TEST_F(Check, passesThroughEveryStageWhenCancelled) {
    const BrightpassOptions options{layout.junkRoots, layout.locations.downloads, false};
    const BrightpassReport nothing = run(options, 0);
    EXPECT_EQ(told, stages);
    EXPECT_THAT(nothing.junk, IsEmpty());
    EXPECT_THAT(nothing.apps, IsEmpty());
    EXPECT_FALSE(nothing.duplicates);
    const BrightpassReport onlyJunk = run(options, 1);
    EXPECT_EQ(told, stages);
    EXPECT_EQ(onlyJunk.junk.size(), 5U);
    EXPECT_THAT(onlyJunk.apps, IsEmpty());
    EXPECT_FALSE(onlyJunk.duplicates);
    EXPECT_EQ(run(options, 2).apps.size(), 2U);
}

}
}
