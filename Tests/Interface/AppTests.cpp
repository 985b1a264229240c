#include "WholeHome.h"

#include <HostKit/Trash.h>
#include <Support/FaultyFiles.h>
#include <Support/MadeUpTool.h>

#include <ControllerSupport/ControllerHome.h>
#include <Interface/TolvaneApp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <QTest>
#include <cerrno>
#include <filesystem>
#include <stdexcept>

namespace tolvane {
namespace {

std::ptrdiff_t threads() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// All modules without their screens, and nothing that would end by itself.
class AppTests : public testing::Test {
  protected:
    AppTests() {
        fillWholeHome(home);
        const Tool hangs{madeUpTool(home, "exec sleep 600"), {}};
        layout.tools.lsof = hangs.executable;
        layout.tools.heavyProcesses = hangs;
        layout.snapshots.system.list = hangs;
        layout.maintenance.flushResolver = hangs;
    }

    std::unique_ptr<TolvaneApp> made() {
        return std::make_unique<TolvaneApp>(TolvaneApp::Host{
            layout, systemFileManager(layout), systemTrash(layout), workspace, {"1", "2"}});
    }

    void startAll(TolvaneApp& app) const {
        app.spaceAnalysis().scan(home.url(), "test");
        app.uninstaller().load();
        app.duplicates().scanRoot(home.url("Copies"));
        app.ports().refresh();
        app.performance().refreshAll();
        app.performance().runRow("dns");
        app.brightpass().run();
        app.settings()->appeared();
    }

    static void cancelAll(TolvaneApp& app) {
        app.spaceAnalysis().cancel();
        app.uninstaller().stopLoading();
        app.duplicates().cancel();
        app.ports().stopWaiting();
        app.performance().stopWaiting();
        app.performance().cancelActivity();
        app.brightpass().cancel();
    }

    const TemporaryHome home;
    HostLayout layout = HostLayout::freedesktop(home.url(), {});
    RecordingWorkspace workspace;
};

TEST_F(AppTests, mayEndWhateverItsModulesDo) {
    constexpr int rounds = 200;
    const std::vector<TreeState> before = wholeState(home);
    made().reset();
    const std::ptrdiff_t threadsBefore = threads();
    for (int round = 0; round < rounds; ++round) {
        const std::unique_ptr<TolvaneApp> app = made();
        startAll(*app);
        if (round % 2 == 0) {
            QTest::qWait(round % 16);
        }
        if (round % 3 == 0) {
            cancelAll(*app);
        }
        if (round % 5 == 0) {
            processEvents();
            startAll(*app);
        }
    }
    processEvents();
    EXPECT_EQ(wholeState(home), before);
    EXPECT_EQ(threads(), threadsBefore);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a tool is still there";
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(AppTests, letsAJobThatFailsLeaveTheOtherModulesAlone) {
    // What reads each folder.
    const std::vector<std::pair<std::string, std::string>> troubles{
        {"data", "analysis "},
        {"Applications", "uninstaller check "},
        {"Copies", "duplicates "},
        {"Downloads", "check "}};
    for (const auto& [folder, expected] : troubles) {
        const auto fail = [place = home.url(folder)](FileOperation, const FileURL& url) {
            if (url == place) {
                throw std::runtime_error("out of luck");
            }
            return std::optional<SystemError>();
        };
        TolvaneApp app({layout,
                        std::make_shared<FaultyFiles>(systemFileManager(layout), fail),
                        systemTrash(layout),
                        workspace,
                        {}});
        startAll(app);
        app.spaceAnalysis().scan(home.url("data"), "test");
        waitUntil([&] {
            return !app.spaceAnalysis().isScanning() && !app.uninstaller().isLoading() &&
                   !app.duplicates().isScanning() && !app.brightpass().isScanning();
        });
        const auto failed = [](const QString& banner, const char* module) {
            return banner.endsWith("out of luck") ? module : "";
        };
        EXPECT_EQ(failed(app.spaceAnalysis().banner(), "analysis ") +
                      std::string(failed(app.uninstaller().banner(), "uninstaller ")) +
                      failed(app.duplicates().banner(), "duplicates ") +
                      failed(app.brightpass().banner(), "check "),
                  expected);
        EXPECT_TRUE(app.ports().isScanning() && app.performance().isBusy());
    }
}

TEST_F(AppTests, losesNothingThatIsOnItsWayToTheTrashWhenItEnds) {
    for (int round = 0; round < 30; ++round) {
        home.write("data/goes", "goes");
        {
            const std::unique_ptr<TolvaneApp> app = made();
            ScanViewModel& analysis = app->spaceAnalysis();
            analysis.scan(home.url("data"), "test");
            waitUntil([&] { return analysis.stage() == Ui::Stage::Result; });
            analysis.select(analysis.folder()->nodeIDAt(0), true);
            analysis.prepareReview();
            analysis.removeReviewed();
            QTest::qWait(round % 3);
        }
        const bool isTrashed = home.has(".local/share/Trash/files/goes");
        EXPECT_NE(home.has("data/goes"), isTrashed);
        EXPECT_EQ(home.has(".local/share/Trash/info/goes.trashinfo"), isTrashed);
        std::filesystem::remove_all(home.path(".local/share/Trash"));
    }
}

}
}
