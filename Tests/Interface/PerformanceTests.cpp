#include "Harness.h"

#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>

#include <gmock/gmock.h>

#include <string>

namespace tolvane {
namespace {

using testing::ElementsAre;

TEST(Performance, endsAProcessAfterAskingAndMaintainsTheMachine) {
    const TemporaryHome home;
    ListeningProcess process({"127.0.0.1"});
    const std::string pid = std::to_string(process.pid());
    const FileURL ps =
        madeUpTool(home, "echo " + pid + " 70000000 1.5 '<b>heavy<b> one'; echo 1 5 0 init", "ps");
    const FileURL flush = madeUpTool(home, "touch '" + home.path("flushed") + "'", "resolvectl");
    Harness harness(home, {.layout = [&](HostLayout& layout) {
                        layout.tools.heavyProcesses = {ps, {}};
                        layout.tools.cutsProcessNames = false;
                        layout.maintenance.flushResolver = {flush, {}};
                    }});
    PerformanceViewModel& performance = harness.app().performance();
    EXPECT_FALSE(performance.isShown());
    harness.showModule("Performance");
    ASSERT_TRUE(harness.eventually([&] { return performance.processRows()->count() == 2; }));
    EXPECT_TRUE(performance.isShown());
    EXPECT_TRUE(harness.shows("<b>heavy<b> one"));

    ASSERT_TRUE(harness.tabTo("row0"));
    harness.press(Qt::Key_Home);
    harness.press(Qt::Key_Delete);
    EXPECT_TRUE(harness.shows("<b>heavy<b> one (PID " + QString::fromStdString(pid) +
                              ") is using 71.68 GB. Unsaved work may be lost."));
    harness.press(Qt::Key_Return);
    EXPECT_FALSE(performance.pendingQuit()) << "the default button ends nothing";
    EXPECT_THAT(process.running(), ElementsAre(process.pid()));
    harness.click("quit0");
    harness.click("dialogDestroy");
    EXPECT_THAT(process.awaitEnd(), ElementsAre(15));
    EXPECT_TRUE(harness.shows("Sent SIGTERM to process " + QString::fromStdString(pid)));

    ASSERT_TRUE(harness.tabTo("run-dns")) << "which brings it into sight";
    harness.press(Qt::Key_Space);
    ASSERT_TRUE(harness.eventually([&] { return !performance.isBusy(); }));
    EXPECT_TRUE(home.has("flushed"));
    EXPECT_EQ(harness.find("status-dns")->property("text").toString(), performance.banner());
    harness.showModule("Ports");
    EXPECT_FALSE(performance.isShown());
}

}
}
