#include "Harness.h"
#include "StallWatch.h"
#include "WholeHome.h"

#include <Support/FaultyFiles.h>
#include <Support/Gate.h>
#include <Support/ListeningProcess.h>

#include <gmock/gmock.h>

#include <QScopeGuard>
#include <set>

namespace tolvane {
namespace {

using testing::ElementsAre;

class Journey : public testing::Test {
  protected:
    Journey() { fillWholeHome(home); }

    static bool awaitResult(const auto& controller) {
        return Harness::eventually([&] { return controller.stage() == Ui::Stage::Result; });
    }
    static bool awaitCheck(Harness& harness) {
        return Harness::eventually(
            [&] { return harness.app().brightpass().shownStage() == Ui::Stage::Result; });
    }
    static bool awaitDetail(Harness& harness) {
        const AppDetail& detail = *harness.app().uninstaller().detail();
        return Harness::eventually([&] { return detail.hasApp() && !detail.isLoading(); });
    }
    static void undo(Harness& harness, const QString& module) {
        harness.showModule(module);
        harness.press(Qt::Key_Z, Qt::ControlModifier);
    }

    static void analyse(Harness& harness, const FileURL& folder);
    static void uninstallAndUndo(Harness& harness);
    static void removeCopies(Harness& harness, const FileURL& folder);
    static void killListener(Harness& harness, ListeningProcess& process);
    static void quitProcess(Harness& harness, ListeningProcess& process);
    static void checkAndFollow(Harness& harness, const TemporaryHome& home);

    const TemporaryHome home;
};

void Journey::analyse(Harness& harness, const FileURL& folder) {
    harness.click("emptyStateAction");
    harness.workspace().choose(folder);
    harness.click(harness.itemNamed("goes"));
    harness.press(Qt::Key_Delete);
    harness.click("reviewRemove");
    EXPECT_TRUE(harness.shows("Moved 1 item to Trash"));
}

void Journey::uninstallAndUndo(Harness& harness) {
    harness.showModule("Uninstaller");
    harness.click("row0");
    ASSERT_TRUE(awaitDetail(harness));
    harness.click("uninstall");
    harness.click("reviewRemove");
    EXPECT_TRUE(harness.shows("Removed Paint and 2 leftover item(s)"));
    undo(harness, "Uninstaller");
    EXPECT_TRUE(harness.shows("Restored 3 item(s)"));
}

void Journey::removeCopies(Harness& harness, const FileURL& folder) {
    harness.showModule("Duplicates");
    harness.click("chooseFolder");
    harness.workspace().choose(folder);
    ASSERT_TRUE(awaitResult(harness.app().duplicates()));
    harness.click("selectAllCopies");
    harness.press(Qt::Key_Delete);
    harness.click("reviewRemove");
    EXPECT_TRUE(harness.shows("Moved 1 duplicate(s) to Trash"));
}

void Journey::killListener(Harness& harness, ListeningProcess& process) {
    harness.showModule("Ports");
    harness.press(Qt::Key_F, Qt::ControlModifier);
    harness.type(QString::number(process.pid()));
    ASSERT_TRUE(Harness::eventually([&] { return harness.app().ports().rows()->count() == 1; }));
    harness.press(Qt::Key_Return);
    harness.press(Qt::Key_Home);
    harness.press(Qt::Key_Delete);
    harness.click("killTerminate");
    EXPECT_THAT(process.awaitEnd(), ElementsAre(15));
}

void Journey::quitProcess(Harness& harness, ListeningProcess& process) {
    harness.showModule("Performance");
    harness.click("quit0");
    harness.click("dialogDestroy");
    EXPECT_THAT(process.awaitEnd(), ElementsAre(15));
    harness.click("refresh");
    EXPECT_TRUE(Harness::eventually(
        [&] { return harness.app().performance().processRows()->count() == 0; }));
}

void Journey::checkAndFollow(Harness& harness, const TemporaryHome& home) {
    harness.showModule("Brightpass");
    harness.click("emptyStateAction");
    ASSERT_TRUE(awaitCheck(harness));
    EXPECT_TRUE(harness.shows(harness.app().brightpass().totalText()));
    harness.click(harness.find("row0", "junkPart"));
    ASSERT_TRUE(awaitResult(harness.controller()));
    EXPECT_EQ(harness.controller().scannedURL(), home.url(".cache"));
    harness.showModule("Brightpass");
    harness.click(harness.find("row0", "appsPart"));
    ASSERT_TRUE(awaitDetail(harness));
    EXPECT_EQ(harness.app().uninstaller().detail()->name(), "Paint");
    harness.showModule("Brightpass");
    harness.click(harness.find("row0", "duplicatesPart"));
    ASSERT_TRUE(awaitResult(harness.app().duplicates()));
    EXPECT_EQ(harness.app().duplicates().root(), home.url("Downloads"));
}

TEST_F(Journey, leadsThroughAllModulesAndBack) {
    const std::vector<TreeState> before = wholeState(home);
    ListeningProcess listening({"127.0.0.1"});
    ListeningProcess heavy({"127.0.0.1"});
    Harness harness(home, {.layout = [&heavy](HostLayout& layout) {
                        // The real tool, asked for this process only.
                        std::vector<std::string>& arguments = layout.tools.heavyProcesses.arguments;
                        arguments.front() = "-p" + std::to_string(heavy.pid());
                    }});
    analyse(harness, home.url("data"));
    uninstallAndUndo(harness);
    removeCopies(harness, home.url("Copies"));
    EXPECT_FALSE(home.has("data/goes") || home.has("Copies/two"));
    EXPECT_TRUE(home.has(".local/share/Trash/files/two"));
    killListener(harness, listening);
    quitProcess(harness, heavy);
    checkAndFollow(harness, home);

    undo(harness, "Space Analysis");
    EXPECT_TRUE(harness.shows("Restored 1 item"));
    undo(harness, "Duplicates");
    EXPECT_TRUE(harness.shows("Restored 1 file(s)"));
    EXPECT_EQ(wholeState(home), before);
}

TEST_F(Journey, goesOnWhileAllModulesWork) {
    const ListeningProcess listening({"127.0.0.1"});
    Gate gate;
    const std::set<std::string, std::less<>> held{"data", "Applications", "Copies", ".cache"};
    const auto hold = [&](FileOperation, const FileURL& url) -> std::optional<SystemError> {
        if (held.contains(url.lastPathComponent())) {
            gate.pass();
        }
        return std::nullopt;
    };
    Harness harness(home, {.files = [&](std::shared_ptr<const FileManager> files) {
                        return std::make_shared<FaultyFiles>(std::move(files), hold);
                    }});
    const auto release = qScopeGuard([&gate] { gate.open(); });
    TolvaneApp& app = harness.app();
    app.spaceAnalysis().scan(home.url("data"), "test");
    app.duplicates().scanRoot(home.url("Copies"));
    app.brightpass().run();
    const StallWatch watch;
    for (int round = 0; round < 3; ++round) {
        for (int row = 0; row < app.modules()->rowCount(); ++row) {
            harness.press(static_cast<Qt::Key>(Qt::Key_1 + row), Qt::ControlModifier);
            EXPECT_EQ(app.currentModule(), row);
            EXPECT_NE(harness.find(row == 3 || row == 4 ? "refresh" : "scanProgress"), nullptr)
                << row;
        }
    }
    EXPECT_TRUE(app.spaceAnalysis().isScanning() && app.duplicates().isScanning() &&
                app.uninstaller().isLoading() && app.brightpass().isScanning());
    gate.open();
    EXPECT_TRUE(awaitResult(app.spaceAnalysis()) && awaitResult(app.duplicates()) &&
                awaitResult(app.uninstaller()) && awaitCheck(harness));
    EXPECT_TRUE(Harness::eventually([&] { return app.ports().hasListeners(); }));
    EXPECT_EQ(app.spaceAnalysis().path().front().url(), home.url("data"));
    EXPECT_EQ(app.duplicates().result()->root, home.url("Copies"));
    EXPECT_EQ(app.brightpass().report()->duplicates->root, home.url("Downloads"));
    EXPECT_EQ(app.uninstaller().rows()->count(), 1);
    constexpr Milliseconds watchdog = 1000;
    EXPECT_LT(watch.longest().busy, watchdog);
}

}
}
