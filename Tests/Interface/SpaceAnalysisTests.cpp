#include "Harness.h"
#include "SampleHome.h"

#include <Support/FaultyFiles.h>
#include <Support/Gate.h>
#include <Support/OddNames.h>
#include <Support/RunProgram.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QTest>
#include <algorithm>
#include <filesystem>

namespace tolvane {
namespace {

std::string trashOf(const TemporaryHome& home) {
    return home.path(".local/share/Trash");
}

std::vector<std::string> logMessages(Harness& harness) {
    harness.app().log().flush();
    QFile file(QString::fromStdString(harness.app().log().fileURL().path()));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<std::string> messages;
    for (const QByteArray& line : file.readAll().split('\n')) {
        messages.push_back(line.mid(line.indexOf(' ') + 1).toStdString());
    }
    return messages;
}

QString bannerOf(Harness& harness) {
    QQuickItem* const text = harness.find("bannerText");
    return text == nullptr ? QString() : text->property("text").toString();
}

TEST(SpaceAnalysis, movesWhatAPersonTicksToTheTrashAndBack) {
    const TemporaryHome home;
    fillSampleHome(home);
    Harness harness(home);
    const TreeState before = treeState(home.path("Downloads"));

    harness.click("emptyStateAction");
    harness.workspace().choose(home.url());
    ASSERT_TRUE(
        harness.eventually([&] { return harness.controller().stage() == Ui::Stage::Result; }));
    harness.doubleClick(harness.itemNamed("Downloads"));
    ASSERT_NE(harness.itemNamed("<b>offer<br> &amp; invoice.pdf"), nullptr);
    EXPECT_TRUE(harness.shows("<b>offer<br> &amp; invoice.pdf")) << "drawn as it is written";

    // Right after a folder was opened clicks are taken for slips.
    ASSERT_TRUE(harness.eventually([&] {
        harness.click(harness.itemNamed(u"not \ufffd UTF-8 \ufffd.zip"_qs));
        return harness.controller().selectedCount() == 1;
    }));
    harness.click(harness.itemNamed("<b>offer<br> &amp; invoice.pdf"), Qt::ControlModifier);
    EXPECT_EQ(harness.controller().selectedCount(), 2);

    harness.press(Qt::Key_Delete);
    ASSERT_NE(harness.find("reviewRow1"), nullptr);
    EXPECT_TRUE(harness.shows("Items move to Trash and can be restored with Undo.\n"
                              "Space is freed when the Trash is emptied."));
    harness.click("reviewRemove");
    ASSERT_TRUE(harness.eventually([&] { return bannerOf(harness) == "Moved 2 items to Trash"; }));
    EXPECT_FALSE(home.has("Downloads/not \xff UTF-8 \xc3.zip"));
    EXPECT_TRUE(home.has(".local/share/Trash/files/not \xff UTF-8 \xc3.zip"));
    EXPECT_TRUE(home.has(".local/share/Trash/info/<b>offer<br> &amp; invoice.pdf.trashinfo"));

    harness.click("bannerAction");
    ASSERT_TRUE(harness.eventually([&] { return bannerOf(harness) == "Restored 2 items"; }));
    EXPECT_EQ(treeState(home.path("Downloads")), before);
    EXPECT_TRUE(std::filesystem::is_empty(trashOf(home) + "/files"));
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
    ASSERT_TRUE(harness.eventually([&] { return bannerOf(harness).startsWith("Moved"); }));
    EXPECT_EQ(treeState(home.path("odd")).size(), 1U);
    ASSERT_TRUE(
        harness.eventually([&] { return harness.controller().stage() == Ui::Stage::Result; }));
    harness.press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(harness.eventually([&] { return bannerOf(harness).startsWith("Restored"); }));
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
    ASSERT_TRUE(harness.eventually(
        [&] { return harness.controller().banner().startsWith("Item no longer exists"); }));
    EXPECT_TRUE(home.has("data/good.bin"));
    EXPECT_TRUE(home.has("data/dangling"));

    harness.click(harness.find("bannerAction", "reviewTrouble"));
    harness.click("reviewRemove");
    ASSERT_TRUE(harness.eventually([&] { return bannerOf(harness) == "Moved 1 item to Trash"; }));
    EXPECT_FALSE(home.has("data/good.bin"));
    EXPECT_TRUE(home.has("data/dangling"));
}

TEST(SpaceAnalysis, undoLeavesWhatTookThePlaceOfAnItem) {
    const TemporaryHome home;
    home.write("data/good.bin", "mine");
    home.write("data/other.bin", std::string(60'000, 'o'));
    Harness harness(home);
    harness.scan(home.url("data"));
    harness.click(harness.itemNamed("good.bin"));
    harness.press(Qt::Key_Delete);
    harness.click("reviewRemove");
    ASSERT_TRUE(harness.eventually([&] { return bannerOf(harness) == "Moved 1 item to Trash"; }));
    home.write("data/good.bin", "another");
    harness.click("bannerAction");
    ASSERT_TRUE(harness.eventually([&] { return bannerOf(harness) == "Restored 0; 1 failed"; }));
    EXPECT_EQ(home.read("data/good.bin"), "another");
    EXPECT_EQ(home.read(".local/share/Trash/files/good.bin"), "mine");
}

TEST(SpaceAnalysis, anItemThatCannotBeMovedEndsTheRemovalAndLosesNothing) {
    // The shortest path goes first.
    const TemporaryHome home;
    for (const char* const name : {"1", "22", "333", "4444", "55555", "stays"}) {
        home.write(std::string("data/") + name, name);
    }
    if (::geteuid() != 0 || runProgram({"chattr", "+i", home.path("data/333")}).status != 0) {
        GTEST_SKIP() << "needs root and chattr on this file system";
    }
    Harness harness(home);
    harness.controller().setSpaceAnalysisView("list");
    harness.scan(home.url("data"));
    for (const char* const name : {"1", "22", "333", "4444", "55555"}) {
        harness.click(harness.itemNamed(name), Qt::ControlModifier);
    }
    harness.press(Qt::Key_Delete);
    harness.click("reviewRemove");
    const QString failure = QString::fromStdString("Could not move " + home.path("data/333"));
    EXPECT_TRUE(harness.eventually([&] { return bannerOf(harness).startsWith(failure); }));
    EXPECT_EQ(runProgram({"chattr", "-i", home.path("data/333")}).status, 0);
    for (const char* const name : {"1", "22"}) {
        EXPECT_EQ(home.read(std::string(".local/share/Trash/files/") + name), name);
        EXPECT_TRUE(home.has(std::string(".local/share/Trash/info/") + name + ".trashinfo"));
    }
    for (const char* const name : {"333", "4444", "55555", "stays"}) {
        EXPECT_EQ(home.read(std::string("data/") + name), name);
    }
    EXPECT_TRUE(harness.eventually([&] { return harness.controller().folder()->count() == 4; }));
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
    const auto gate = std::make_shared<Gate>();
    Harness harness(
        home, {.files = [&](std::shared_ptr<const FileManager> files) {
            return std::make_shared<FaultyFiles>(
                std::move(files),
                [gate](FileOperation, const FileURL& url) -> std::optional<SystemError> {
                    if (url.lastPathComponent() == "Videos") {
                        gate->pass();
                    }
                    return std::nullopt;
                });
        }});
    harness.controller().scan(home.url(), "test");
    ASSERT_TRUE(harness.eventually([&] { return gate->isReached(); }));
    EXPECT_NE(harness.find("scanProgress"), nullptr);
    harness.press(Qt::Key_Escape);
    gate->open();
    ASSERT_TRUE(
        harness.eventually([&] { return harness.controller().stage() == Ui::Stage::Result; }));
    EXPECT_NE(harness.find("partialBanner"), nullptr);
}

TEST(TolvaneApp, tellsTheLogOfItsLaunch) {
    const TemporaryHome home;
    home.write(".local/state/Logs/DiagnosticReports/Tolvane-2026-01-02-030405.crash", "report");
    Harness harness(home);
    const std::vector<std::string> messages = logMessages(harness);
    ASSERT_GE(messages.size(), 3U);
    EXPECT_EQ(messages[0], "app launch version=1.2.3");
    EXPECT_NE(messages[1].find("Tolvane-2026-01-02-030405.crash"), std::string::npos);
    EXPECT_TRUE(messages[2].starts_with("fda launch granted=")) << messages[2];
    EXPECT_NE(messages[2].find(" confirmed="), std::string::npos);
    EXPECT_NE(messages[2].find(" detail="), std::string::npos);
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
