#include <Support/GatedFiles.h>

#include <ControllerSupport/ControllerTest.h>
#include <Controllers/BrightpassViewModel.h>
#include <gmock/gmock.h>

#include <algorithm>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class BrightpassViewModelTests : public ControllerTest<BrightpassViewModel> {
  protected:
    BrightpassViewModelTests() {
        home.write(".cache/a", std::string(9'000, 'a'));
        home.makeFolder("Applications/org.example.paint.AppDir");
        home.write(".config/org.example.paint/settings", "s");
        home.write("Downloads/one", std::string(2'000, 'c'));
        home.write("Downloads/two", std::string(2'000, 'c'));
        // Without the logs, which this very run writes.
        environment.layout.junkRoots = {environment.layout.junkRoots[0], home.url("missing")};
    }

    void awaitReport() {
        waitUntil([this] { return controller->shownStage() == Ui::Stage::Result; });
    }
    /// Runs, and stands still before the downloads are looked through.
    void runAndHold() {
        start(gated(gate, home.files, home.url("Downloads"))).run();
        waitUntil([this] { return gate.isReached(); });
    }
};

TEST_F(BrightpassViewModelTests, publishesAReportAndLeadsToWhatItShows) {
    start().run();
    EXPECT_EQ(controller->stage(), "Starting");
    EXPECT_TRUE(controller->isScanning());
    awaitReport();
    EXPECT_FALSE(controller->isScanning());
    EXPECT_EQ(controller->stage(), "");
    EXPECT_EQ(controller->headline(), "Up to 18 KB can be reclaimed");
    EXPECT_EQ(texts(*controller->parts(), "figure"),
              (std::vector<QString>{"12 KB", "4 KB", "2 KB"}));
    EXPECT_THAT(texts(*controller->apps(), "name"), ElementsAre("org.example.paint"));
    EXPECT_THAT(texts(*controller->duplicates(), "note"), ElementsAre("2 files of 2 KB"));
    EXPECT_THAT(home.logText(), testing::ContainsRegex(
                                    "brightpass start\n.*brightpass done junk=12288 "
                                    "leftovers=4096 duplicates=2000 apps=1 seconds=0\\.[0-9]\n"));

    std::vector<std::string> asked;
    QObject::connect(controller.get(), &BrightpassViewModel::junkRequested,
                     [&](const FileURL& folder) { asked.push_back(folder.path()); });
    QObject::connect(controller.get(), &BrightpassViewModel::appRequested,
                     [&](const InstalledApp& app) { asked.push_back(app.bundleID); });
    QObject::connect(controller.get(), &BrightpassViewModel::duplicatesRequested,
                     [&](const FileURL& folder, Bytes minimum) {
                         asked.push_back(folder.path() + " " + std::to_string(minimum));
                     });
    for (const int row : {-1, 0, 1, 99}) {
        controller->showJunk(row);
        controller->showApp(row);
    }
    controller->showDuplicates();
    EXPECT_THAT(asked, ElementsAre(home.path(".cache"), "org.example.paint",
                                   home.path("Downloads") + " 1024"));
}

TEST_F(BrightpassViewModelTests, publishesWhatACancelledRunFound) {
    runAndHold();
    controller->cancel();
    EXPECT_FALSE(controller->isScanning());
    EXPECT_EQ(controller->shownStage(), Ui::Stage::Working);
    gate.open();
    awaitReport();
    EXPECT_TRUE(controller->isPartial());
    EXPECT_EQ(controller->report()->junkBytes(), 12'288);
    EXPECT_EQ(controller->report()->duplicateBytes(), 0);
    EXPECT_THAT(controller->elapsedText().toStdString(), HasSubstr("Stopped after "));
}

TEST_F(BrightpassViewModelTests, publishesOnlyTheLatestOfTwoRuns) {
    runAndHold();
    home.defaults.setPath("brightpassDuplicatesPath", home.url("missing"));
    controller->run();
    awaitReport();
    gate.open();
    processEvents();
    EXPECT_EQ(controller->duplicatesSummary(), "None in missing");
    EXPECT_EQ(controller->failuresText(), "1 folder could not be read");
    EXPECT_EQ(home.logged("brightpass start"), 2);
    EXPECT_EQ(home.logged("brightpass done"), 1);
}

TEST_F(BrightpassViewModelTests, runsByItselfOnlyWhenTheSettingsSaySo) {
    start();
    controller->appeared();
    EXPECT_EQ(controller->shownStage(), Ui::Stage::Start);
    home.defaults.set("autoRunBrightpass", true);
    controller->appeared();
    controller->appeared();
    awaitReport();
    controller->appeared();
    EXPECT_EQ(home.logged("brightpass start"), 1);
}

TEST_F(BrightpassViewModelTests, remembersTheFolderThatAPersonChose) {
    start();
    controller->chooseDuplicatesRoot();
    ASSERT_TRUE(home.workspace.choose);
    home.workspace.choose(home.makeFolder("Elsewhere"));
    EXPECT_EQ(controller->duplicatesPath().toStdString(), home.path("Elsewhere"));
    EXPECT_EQ(home.defaults.path("brightpassDuplicatesPath"), home.url("Elsewhere"));
}

TEST_F(BrightpassViewModelTests, mayBeDestroyedWhateverRuns) {
    destroyAmidst([this] { start().run(); },
                  {[] {}, [this] { controller->cancel(); }, [this] { controller->run(); }});
}

}
}
