#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>

#include <ControllerSupport/ControllerTest.h>
#include <Controllers/PerformanceViewModel.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Made-up tools of every kind; those that stand for several tell which by "$@".
class PerformanceViewModelTests : public ControllerTest<PerformanceViewModel> {
  protected:
    PerformanceViewModelTests() {
        HostLayout& layout = environment.layout;
        layout.sources = {home.makeFolder("proc"), home.makeFolder("sys"), home.makeFolder("dev")};
        layout.tools.heavyProcesses = {home.url("ps"), {}};
        layout.maintenance.flushResolver = {home.url("flush"), {}};
        layout.maintenance.rebuildRegistry = {home.url("rebuild"), {}};
        layout.maintenance.prompt.tool = {home.url("prompt"), {}};
        layout.maintenance.beforePurge.reset();
        layout.snapshots.system.list = {home.url("snapper"), {"system"}};
        layout.snapshots.data.list = {home.url("snapper"), {"data"}};
        layout.startup.folders = {{"user", StartupFormat::autostart, "autostart"}};
        tellMemory(600);
    }
    void tellMemory(int available) {
        home.write("proc/meminfo", "MemTotal: 1000000 kB\nMemFree: 100000 kB\nMemAvailable: " +
                                       std::to_string(available) + "000 kB\n");
    }
    void script(const char* name, const std::string& text) { madeUpTool(home, text, name); }

    PerformanceViewModel& start() {
        ControllerTest::start();
        watch(controller->processRows());
        watch(controller->maintenanceRows());
        return *controller;
    }
    void settle() {
        waitUntil([this] { return !controller->isBusy(); });
    }
    QString bannerAfter(const QString& key) {
        controller->runRow(key);
        settle();
        return controller->banner();
    }
};

TEST_F(PerformanceViewModelTests, showsWhatTheSamplersTell) {
    script("ps", "echo ' 70 250000 1.5 a name'; echo ' 71 500000 0.5 b'");
    script("snapper", "[ $1 = data ] && echo 'number,date,cleanup\n3,2026-11-21 05:46:58,'");
    home.write("autostart/a.desktop", "[Desktop Entry]\nName=A\nExec=a\nHidden=true\n");
    home.write("autostart/b.desktop", "[Desktop Entry]\nName=B\nExec=b\n");
    start().refreshAll();
    EXPECT_EQ(controller->memory()->used(), Bytes{400'000} * 1024) << "known at once";
    EXPECT_EQ(controller->history().last(), 0.4);
    EXPECT_EQ(controller->history().count(-1.0), MemoryHistory::steps - 1);
    EXPECT_GT(controller->volume()->total, 0);
    waitUntil([this] {
        return controller->knowsProcesses() && controller->knowsAgents() &&
               controller->knowsSnapshots();
    });
    EXPECT_THAT(texts(*controller->processRows(), "nameText"), ElementsAre("b", "a name"));
    EXPECT_EQ(texts(*controller->processRows(), "share").front(), "0.5");
    EXPECT_THAT(texts(*controller->agentRows(), "labelText"), ElementsAre("B", "A"));
    EXPECT_EQ(controller->runAtLoadAgents().size(), 1U);
    EXPECT_THAT(texts(*controller->snapshotRows(), "dateText"), ElementsAre("2026-11-21 05:46"));

    home.write("proc/meminfo", "nothing");
    controller->refreshStats();
    EXPECT_FALSE(controller->memory());
    EXPECT_FALSE(controller->hasMemory());
}

TEST_F(PerformanceViewModelTests, runsOneActionAtATime) {
    script("rebuild", "while [ ! -e '" + home.path("go") + "' ]; do sleep 0.02; done");
    script("flush", "echo 'no <b>bus</b>\n\n at all' >&2; exit 1");
    start().runRow("ls");
    EXPECT_TRUE(controller->isBusy());
    EXPECT_EQ(controller->statuses().at("ls"), "Running…");
    controller->runRow("dns");
    controller->runRow("purge");
    EXPECT_FALSE(controller->statuses().contains("dns"));
    controller->runRow("own");
    EXPECT_THAT(controller->banner().toStdString(), HasSubstr(" from Tolvane's allocator · system "
                                                              "available "));
    EXPECT_EQ(home.logged("performance allocator relief bytes="), 1);
    home.write("go");
    settle();
    EXPECT_EQ(controller->banner(), "Rebuilt the Launch Services database for this user.");
    EXPECT_EQ(controller->statuses().at("ls"), controller->banner().toStdString());
    waitUntil([this] { return controller->knowsSnapshots(); });
    EXPECT_EQ(bannerAfter("dns"), "no <b>bus</b>\nat all");
    EXPECT_THAT(texts(*controller->maintenanceRows(), "hasFailed"),
                ElementsAre("false", "false", "true", "false", "false", "false"));
    EXPECT_EQ(home.logged("performance maintenance dns: no <b>bus</b>\n\n at all\n"), 1);

    std::filesystem::remove(home.path("go"));
    controller->runRow("ls");
    controller->cancelActivity();
    settle();
    EXPECT_NE(controller->statuses().at("ls"), "Running…") << "a tool that hangs can be ended";
    controller->openLoginItemsSettings();
    EXPECT_THAT(home.workspace.panes, ElementsAre(SettingsPane::loginItems));
}

TEST_F(PerformanceViewModelTests, thinsTheVolumeThatHoldsSnapshots) {
    script("prompt", "echo \"$@\" >'" + home.path("asked") + "'");
    start();
    EXPECT_EQ(bannerAfter("snapshots"), "No local Time Machine snapshots to thin");
    EXPECT_FALSE(home.has("asked"));
    struct Case {
        const char* volumes;
        const char* thinned;
    };
    for (const Case& wanted : {Case{"system", "/"}, Case{"system data", "/home"}}) {
        script("snapper", "case '" + std::string(wanted.volumes) +
                              "' in *$1*) echo '1,2026-11-21 05:46:58,';; esac");
        start().refreshAll();
        waitUntil([this] { return controller->knowsSnapshots(); });
        EXPECT_EQ(bannerAfter("snapshots").toStdString(),
                  "Requested Time Machine to thin local snapshots on " +
                      std::string(wanted.thinned) + ".");
    }
    EXPECT_EQ(home.read("asked"), "/usr/bin/snapper -c home cleanup all\n");
}

TEST_F(PerformanceViewModelTests, tellsWhatAPurgeBrought) {
    struct Case {
        int before;
        int after;
        const char* banner;
        const char* logged;
    };
    for (const Case& wanted :
         {Case{500, 600, "Released 102.4 MB of memory", "success delta=102400000\n"},
          Case{600, 500, "Purge completed; available memory is unchanged",
               "success delta=-102400000\n"}}) {
        tellMemory(wanted.before);
        script("prompt", "sed -i 's/^MemAvailable.*/MemAvailable: " + std::to_string(wanted.after) +
                             "000 kB/' '" + home.path("proc/meminfo") + "'");
        start();
        EXPECT_EQ(bannerAfter("purge"), wanted.banner);
        EXPECT_EQ(controller->memory()->available(), Bytes{wanted.after} * 1'024'000);
        EXPECT_EQ(home.logged(std::string("performance free ram ") + wanted.logged), 1);
    }
    script("prompt", "exit 126");
    EXPECT_EQ(bannerAfter("purge"), "Canceled by the user.");
    EXPECT_EQ(home.logged("performance free ram failed: Canceled by the user.\n"), 1);
    EXPECT_TRUE(controller->statuses().empty());
}

TEST_F(PerformanceViewModelTests, endsTheVeryProcessThatWasAskedAbout) {
    ListeningProcess process({"127.0.0.1"});
    const std::string pid = std::to_string(process.pid());
    const auto startedAt = [&](const std::string& time) {
        home.write("proc/" + pid + "/stat",
                   pid + " (a) S 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 " + time + " 0 0\n");
    };
    script("ps", "echo " + pid + " 1000 0 a; echo 1 900 0 init");
    startedAt("1000");
    const auto list = [&] {
        start().refreshStats();
        waitUntil([this] { return controller->knowsProcesses(); });
        controller->askToQuit(controller->processAt(0));
    };
    list();
    EXPECT_EQ(controller->pendingQuitText().toStdString(),
              "a (PID " + pid + ") is using 1 MB. Unsaved work may be lost.");
    startedAt("2000");
    controller->quitPending();
    EXPECT_EQ(controller->banner().toStdString(), "Process " + pid + " is no longer running");
    EXPECT_THAT(process.running(), ElementsAre(process.pid()));
    list();
    controller->quitPending();
    EXPECT_THAT(process.awaitEnd(), ElementsAre(15));
    EXPECT_EQ(home.logged("performance terminate pid=" + pid + " result=Sent SIGTERM to process " +
                          pid + "\n"),
              1);
    controller->askToQuit(controller->processAt(1));
    script("ps", "echo 1 900 0 init");
    controller->quitPending();
    EXPECT_EQ(controller->banner(), "Refusing to signal protected process 1");
    waitUntil([this] { return controller->processRows()->count() == 1; });
}

TEST_F(PerformanceViewModelTests, startsNoSecondToolBesideOneThatHangs) {
    script("ps", "echo $$ >>'" + home.path("pids") + "'; exec sleep 1000");
    start().setShown(true);
    waitUntil([this] {
        return !controller->waitingText().isEmpty() && home.has("pids") &&
               !home.read("pids").empty();
    });
    tellMemory(500);
    waitUntil([this] { return controller->memory()->usedFraction() == 0.5; });
    const std::string pids = home.read("pids");
    EXPECT_EQ(pids.find('\n'), pids.size() - 1) << "one run";
    controller->cancelActivity();
    EXPECT_TRUE(controller->waitingText().isEmpty());
    EXPECT_TRUE(ListeningProcess::endsSoon(std::stoi(pids)));
}

TEST_F(PerformanceViewModelTests, canBeDestroyedAtAnyTime) {
    for (const char* const tool : {"ps", "flush", "prompt", "snapper"}) {
        script(tool, "true");
    }
    const auto run = [this](const char* key) { return [=, this] { controller->runRow(key); }; };
    const auto cancel = [this] {
        controller->runRow("dns");
        controller->cancelActivity();
    };
    destroyAmidst([this] { start().refreshAll(); },
                  {run("dns"), run("purge"), run("snapshots"), run("own"), cancel, processEvents});
}

TEST(MemoryHistoryTests, keepsToTheTime) {
    MemoryHistory history(std::chrono::seconds(3));
    EXPECT_FALSE(history.least());
    for (const double time : {100.0, 102.9, 103.5, 106.1}) {
        history.add(time, time / 1000);
    }
    history.add(112.0, 2);
    const QList<double>& all = history.fractions();
    EXPECT_THAT(std::vector(all.end() - 6, all.end()), ElementsAre(-1, 0.1, 0.1035, 0.1061, -1, 1));
    EXPECT_EQ(history.least(), 0.1);
    EXPECT_EQ(history.most(), 1);
    history.add(1000, 0.5);
    EXPECT_EQ(history.fractions().count(MemoryHistory::unknown), MemoryHistory::steps - 1);
}

}
}
