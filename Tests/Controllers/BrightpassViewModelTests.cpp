#include <Support/Gate.h>
#include <Support/GatedFiles.h>

#include <ControllerSupport/ControllerHome.h>
#include <Controllers/BrightpassViewModel.h>
#include <gmock/gmock.h>

#include <algorithm>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class BrightpassViewModelTests : public testing::Test {
  protected:
    BrightpassViewModelTests() {
        home.write(".cache/a", std::string(9'000, 'a'));
        home.makeFolder("Applications/org.example.paint.AppDir");
        home.write(".config/org.example.paint/settings", "s");
        home.write("Downloads/one", std::string(2'000, 'c'));
        home.write("Downloads/two", std::string(2'000, 'c'));
    }

    static void awaitReport(BrightpassViewModel& controller) {
        waitUntil([&] { return controller.shownStage() == Ui::Stage::Result; });
    }
    /// Stands still before the downloads are looked through.
    Environment held(Gate& gate) const {
        Environment other = environment;
        other.files = gated(gate, home.files, home.url("Downloads"));
        return other;
    }
    /// Without the logs, which this very run writes.
    Environment onlyCaches() const {
        Environment other = home.environment();
        other.layout.junkRoots.resize(1);
        return other;
    }

    ControllerHome home;
    const Environment environment = onlyCaches();
};

TEST_F(BrightpassViewModelTests, publishesAReportAndLeadsToWhatItShows) {
    BrightpassViewModel controller(environment);
    controller.run();
    EXPECT_EQ(controller.stage(), "Starting");
    EXPECT_TRUE(controller.isScanning());
    awaitReport(controller);
    EXPECT_FALSE(controller.isScanning());
    EXPECT_EQ(controller.stage(), "");
    EXPECT_EQ(controller.headline(), "Up to 18 KB can be reclaimed");
    EXPECT_EQ(texts(*controller.parts(), "figure"),
              (std::vector<QString>{"12 KB", "4 KB", "2 KB"}));
    EXPECT_THAT(texts(*controller.apps(), "name"), ElementsAre("org.example.paint"));
    EXPECT_THAT(texts(*controller.duplicates(), "note"), ElementsAre("2 files of 2 KB"));
    EXPECT_THAT(home.logText(), testing::ContainsRegex(
                                    "brightpass start\n.*brightpass done junk=12288 "
                                    "leftovers=4096 duplicates=2000 apps=1 seconds=0\\.[0-9]\n"));

    std::vector<std::string> asked;
    QObject::connect(&controller, &BrightpassViewModel::junkRequested,
                     [&](const FileURL& folder) { asked.push_back(folder.path()); });
    QObject::connect(&controller, &BrightpassViewModel::appRequested,
                     [&](const InstalledApp& app) { asked.push_back(app.bundleID); });
    QObject::connect(&controller, &BrightpassViewModel::duplicatesRequested,
                     [&](const FileURL& folder, Bytes minimum) {
                         asked.push_back(folder.path() + " " + std::to_string(minimum));
                     });
    for (const int row : {-1, 0, 99}) {
        controller.showJunk(row);
        controller.showApp(row);
    }
    controller.showDuplicates();
    EXPECT_THAT(asked, ElementsAre(home.path(".cache"), "org.example.paint",
                                   home.path("Downloads") + " 1024"));
}

TEST_F(BrightpassViewModelTests, publishesWhatACancelledRunFound) {
    Gate gate;
    const Environment heldUp = held(gate);
    BrightpassViewModel controller(heldUp);
    controller.run();
    waitUntil([&] { return gate.isReached(); });
    controller.cancel();
    EXPECT_FALSE(controller.isScanning());
    EXPECT_EQ(controller.shownStage(), Ui::Stage::Working);
    gate.open();
    awaitReport(controller);
    EXPECT_TRUE(controller.isPartial());
    EXPECT_EQ(controller.report()->junkBytes(), 12'288);
    EXPECT_EQ(controller.report()->duplicateBytes(), 0);
    EXPECT_THAT(controller.elapsedText().toStdString(), HasSubstr("Stopped after "));
}

TEST_F(BrightpassViewModelTests, publishesOnlyTheLatestOfTwoRuns) {
    Gate gate;
    const Environment heldUp = held(gate);
    BrightpassViewModel controller(heldUp);
    controller.run();
    waitUntil([&] { return gate.isReached(); });
    home.defaults.setPath("brightpassDuplicatesPath", home.url("missing"));
    controller.run();
    awaitReport(controller);
    gate.open();
    processEvents();
    EXPECT_EQ(controller.duplicatesSummary(), "None in missing");
    EXPECT_EQ(controller.failuresText(), "1 folder could not be read");
    EXPECT_EQ(home.logged("brightpass start"), 2);
    EXPECT_EQ(home.logged("brightpass done"), 1);
}

TEST_F(BrightpassViewModelTests, runsByItselfOnlyWhenTheSettingsSaySo) {
    BrightpassViewModel controller(environment);
    controller.appeared();
    EXPECT_EQ(controller.shownStage(), Ui::Stage::Start);
    home.defaults.set("autoRunBrightpass", true);
    controller.appeared();
    controller.appeared();
    awaitReport(controller);
    controller.appeared();
    EXPECT_EQ(home.logged("brightpass start"), 1);
}

TEST_F(BrightpassViewModelTests, remembersTheFolderThatAPersonChose) {
    BrightpassViewModel controller(environment);
    controller.chooseDuplicatesRoot();
    ASSERT_TRUE(home.workspace.choose);
    home.workspace.choose(home.makeFolder("Elsewhere"));
    EXPECT_EQ(controller.duplicatesPath().toStdString(), home.path("Elsewhere"));
    EXPECT_EQ(home.defaults.path("brightpassDuplicatesPath"), home.url("Elsewhere"));
}

TEST_F(BrightpassViewModelTests, mayBeDestroyedWhateverRuns) {
    for (int round = 0; round < 1'000; ++round) {
        BrightpassViewModel controller(environment);
        controller.run();
        if (round % 3 == 0) {
            controller.cancel();
        }
        if (round % 7 == 0) {
            controller.run();
        }
    }
    processEvents();
}

}
}
