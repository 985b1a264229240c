#include "Harness.h"
#include "SampleHome.h"

#include <Support/GatedFiles.h>
#include <Support/OddNames.h>
#include <Support/RunProgram.h>
#include <Support/TreeState.h>

#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QIcon>
#include <QTest>

namespace tolvane {
namespace {

bool tells(Harness& harness, const QString& banner) {
    return Harness::eventually([&] { return harness.controller().banner().startsWith(banner); }) &&
           harness.shows(harness.controller().banner());
}

TEST(SpaceAnalysis, aClickTicksOneItemAndAnotherWithControlBoth) {
    const TemporaryHome home;
    fillSampleHome(home);
    Harness harness(home);
    harness.click("emptyStateAction");
    harness.workspace().choose(home.url());
    const QString marked = "<b>offer<br> &amp; invoice.pdf";
    harness.doubleClick(harness.itemNamed("Downloads"));
    ASSERT_NE(harness.itemNamed(marked), nullptr);
    EXPECT_TRUE(harness.shows(marked)) << "drawn as it is written";

    // Right after a folder was opened clicks are taken for slips.
    ASSERT_TRUE(harness.eventually([&] {
        harness.click(harness.itemNamed(u"not \ufffd UTF-8 \ufffd.zip"_qs));
        return harness.controller().selectedCount() == 1;
    }));
    harness.click(harness.itemNamed(marked), Qt::ControlModifier);
    EXPECT_EQ(harness.controller().selectedCount(), 2);
    harness.press(Qt::Key_Delete);
    EXPECT_NE(harness.find("reviewRow1"), nullptr);
    EXPECT_TRUE(harness.shows("Items move to Trash and can be restored with Undo.\n"
                              "Space is freed when the Trash is emptied."));
}

TEST(SpaceAnalysis, everyNameGoesToTheTrashAndBackThroughTheWindow) {
    const TemporaryHome home;
    for (const std::string& name : oddNames()) {
        home.write("odd/" + name, std::string(3000, 'o'));
    }
    home.write("odd/stays", "s");
    const TreeState before = treeState(home.path("odd"));
    Harness harness(home);
    harness.controller().setSpaceAnalysisView("list");
    harness.scan(home.url("odd"));

    harness.press(Qt::Key_Home);
    for (std::size_t position = 0; position < oddNames().size(); ++position) {
        harness.press(Qt::Key_Space);
        harness.press(Qt::Key_Down);
    }
    EXPECT_EQ(harness.controller().selectedCount(), static_cast<int>(oddNames().size()));
    harness.click("review");
    harness.click("reviewRemove");
    ASSERT_TRUE(tells(harness, "Moved"));
    EXPECT_EQ(treeState(home.path("odd")).size(), 1U);
    harness.click("bannerAction");
    ASSERT_TRUE(tells(harness, "Restored"));
    EXPECT_EQ(treeState(home.path("odd")), before);
}

TEST(SpaceAnalysis, aRowInTheWayIsMarkedAndMovesNothingUntilItIsLeftOut) {
    const TemporaryHome home;
    home.write("data/good.bin", std::string(50'000, 'g'));
    home.write("data/other.bin", std::string(60'000, 'o'));
    home.makeLink("data/dangling", "nowhere");
    Harness harness(home);
    harness.scan(home.url("data"));
    harness.click(harness.itemNamed("good.bin"));
    harness.click(harness.itemNamed("dangling"), Qt::ControlModifier);
    harness.press(Qt::Key_Delete);
    ASSERT_TRUE(
        harness.eventually([&] { return harness.controller().removal()->troubledCount() == 1; }));

    harness.click("reviewRemove");
    ASSERT_TRUE(tells(harness, "Item no longer exists"));
    EXPECT_TRUE(home.has("data/good.bin"));

    harness.click(harness.find("bannerAction", "reviewTrouble"));
    harness.click("reviewRemove");
    ASSERT_TRUE(tells(harness, "Moved 1 item to Trash"));
    EXPECT_FALSE(home.has("data/good.bin"));
    EXPECT_TRUE(home.has("data/dangling"));
}

TEST(SpaceAnalysis, canBeWorkedByKeyboardAlone) {
    const TemporaryHome home;
    home.write("data/folder/large.bin", std::string(90'000, 'l'));
    home.write("data/folder/small.bin", std::string(10'000, 's'));
    Harness harness(home);
    ASSERT_TRUE(harness.tabTo("emptyStateAction"));
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(harness.workspace().choose);
    harness.workspace().choose(home.url("data"));
    ASSERT_NE(harness.itemNamed("folder"), nullptr);
    harness.press(Qt::Key_Return);
    ASSERT_NE(harness.itemNamed("small.bin"), nullptr);
    harness.press(Qt::Key_Right);
    // Right after a folder was opened ticks are taken for slips.
    ASSERT_TRUE(harness.eventually([&] {
        harness.press(Qt::Key_Space);
        return harness.controller().selectedCount() == 1;
    }));
    harness.press(Qt::Key_Delete);
    ASSERT_NE(harness.find("reviewRow0"), nullptr);
    harness.press(Qt::Key_Return);
    EXPECT_TRUE(home.has("data/folder/small.bin")) << "the default button removes nothing";
    harness.press(Qt::Key_Delete);
    ASSERT_TRUE(harness.tabTo("reviewRemove"));
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(harness.eventually([&] { return !home.has("data/folder/small.bin"); }));
    ASSERT_TRUE(harness.eventually([&] { return harness.controller().removal()->canUndo(); }));
    harness.press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(harness.eventually([&] { return home.has("data/folder/small.bin"); }));
    EXPECT_TRUE(home.has("data/folder/large.bin"));

    harness.press(Qt::Key_F1);
    EXPECT_TRUE(harness.shows("Shortcuts"));
    harness.press(Qt::Key_Escape);
}

TEST(SpaceAnalysis, scansAFolderDroppedOnTheWindow) {
    const TemporaryHome home;
    home.write("a \xff folder/inside.txt", "inside");
    Harness harness(home);
    harness.drop({home.url("a \xff folder")});
    ASSERT_NE(harness.itemNamed("inside.txt"), nullptr);
    EXPECT_EQ(harness.controller().scannedURL(), home.url("a \xff folder"));
}

TEST(SpaceAnalysis, aCancelledScanShowsWhatItHasAndSaysSo) {
    const TemporaryHome home;
    fillSampleHome(home);
    Gate gate;
    Harness harness(home, {.files = [&](std::shared_ptr<const FileManager> files) {
                        return gated(gate, std::move(files), home.url("Videos"));
                    }});
    harness.controller().scan(home.url(), "test");
    ASSERT_TRUE(harness.eventually([&] { return gate.isReached(); }));
    EXPECT_NE(harness.find("scanProgress"), nullptr);
    harness.press(Qt::Key_Escape);
    gate.open();
    ASSERT_TRUE(
        harness.eventually([&] { return harness.controller().stage() == Ui::Stage::Result; }));
    EXPECT_NE(harness.find("partialBanner"), nullptr);
}

TEST(TolvaneApp, tellsTheLogOfItsLaunch) {
    const TemporaryHome home;
    home.write(".local/state/Logs/DiagnosticReports/Tolvane-2026-01-02-030405.crash", "report");
    Harness harness(home);
    harness.app().log().flush();
    EXPECT_THAT(home.read(".local/state/Logs/Tolvane/scan.log"),
                testing::ContainsRegex("^[^ ]+ app launch version=1.2.3\n"
                                       "[^ ]+ .*Tolvane-2026-01-02-030405.crash\n"
                                       "[^ ]+ fda launch granted=.* confirmed=.* detail="));
}

TEST(Program, saysSoAndEndsWhenTheDisplayDoesNotAnswer) {
    const TemporaryHome home;
    const ProgramRun run = runProgram(
        {TOLVANE_PROGRAM, home.url().path()},
        {{"HOME", home.url().path()}, {"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", "nowhere:1"}});
    EXPECT_EQ(run.status, 69) << "which tells ./run to go on in the terminal";
    EXPECT_FALSE(home.has(".local/state/Logs/DiagnosticReports")) << "it is no crash";
}

TEST(MainWindow, bearsTheIconOfItsDesktopEntryWhereNothingIsInstalledToo) {
    EXPECT_EQ(QGuiApplication::windowIcon().pixmap(48, 48).size(), QSize(48, 48));
}

TEST(MainWindow, comesBackWhereItWasUnlessNobodyCouldSeeItThere) {
    const QRect screen(0, 0, 1920, 1080);
    const QSize smallest(860, 560);
    const auto fitted = [&](const QRect& wanted) {
        return WindowPlacement::fitted(wanted, screen, smallest);
    };
    EXPECT_EQ(fitted({100, 80, 1000, 700}), QRect(100, 80, 1000, 700));
    EXPECT_EQ(fitted({5000, 3000, 1000, 700}), QRect(920, 380, 1000, 700));
    EXPECT_EQ(fitted({-900, -50, 1000, 700}), QRect(0, 0, 1000, 700));
    EXPECT_EQ(fitted({0, 0, 4000, 3000}), screen);
    EXPECT_EQ(fitted({10, 10, -5, 0}).size(), smallest);

    const TemporaryHome home;
    {
        Harness harness(home);
        harness.window().resize(860, 610);
        QTest::qWait(50);
    }
    EXPECT_EQ(Harness(home).window().size(), QSize(860, 610));
}

}
}
