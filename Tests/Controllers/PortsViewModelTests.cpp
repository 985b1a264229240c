#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>

#include <ControllerSupport/ControllerTest.h>
#include <Controllers/PortsViewModel.h>
#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tolvane {
namespace {

using testing::ElementsAre;

class PortsViewModelTests : public ControllerTest<PortsViewModel> {
  protected:
    /// Has lsof be a script, which notes each of its runs.
    void useScript(const std::string& script) {
        environment.layout.tools.lsof =
            madeUpTool(home, "echo run >>'" + home.path("runs") + "'\n" + script, "lsof");
    }
    /// Has lsof tell this.
    void tell(const std::string& fields) {
        home.write("told", fields);
        useScript("cat '" + home.path("told") + "'");
    }
    void refresh() {
        controller->refresh();
        waitUntil([this] { return !controller->isScanning(); });
    }
    void settle() {
        waitUntil([this] { return !controller->isSignalling(); });
    }
    std::size_t runs() const {
        return home.has("runs") ? home.read("runs").size() / std::string("run\n").size() : 0;
    }
    std::vector<std::string> ids() const {
        std::vector<std::string> ids;
        for (int row = 0; row < controller->rows()->count(); ++row) {
            ids.push_back(controller->idAt(row).toStdString());
        }
        return ids;
    }
    static std::string idOf(const ListeningProcess& process) {
        return std::to_string(process.pid()) + "-" + std::to_string(process.ports().front()) +
               "-TCP";
    }
};

TEST_F(PortsViewModelTests, findsAListenerAndEndsIt) {
    ListeningProcess process({"127.0.0.1", "::1"});
    const QString id = QString::fromStdString(idOf(process));
    const std::string pid = std::to_string(process.pid());
    start().setQuery(QString::number(process.pid()));
    refresh();
    ASSERT_THAT(ids(), ElementsAre(id.toStdString()));
    EXPECT_EQ(controller->filtered().front().addresses.size(), 2U) << "one row, both addresses";
    controller->select(id);
    controller->reveal(id);
    EXPECT_EQ(home.workspace.revealed.size(), 1U);
    controller->copyPort(id);
    EXPECT_EQ(controller->banner(), "Copied port " + QString::number(process.ports().front()));

    controller->askToKill(id);
    EXPECT_TRUE(controller->pendingKillText().endsWith(
        " (PID " + QString::number(process.pid()) + ") is listening on port " +
        QString::number(process.ports().front()) + "."));
    controller->killPending(false);
    EXPECT_TRUE(controller->isSignalling());
    settle();
    EXPECT_THAT(process.awaitEnd(), ElementsAre(15));
    EXPECT_TRUE(controller->banner().startsWith("Sent SIGTERM to "));
    EXPECT_EQ(home.logged("ports kill pid=" + pid +
                          " port=" + std::to_string(process.ports().front()) +
                          " force=false tree=false" + "\n"),
              1);
    waitUntil([this] { return controller->rows()->count() == 0; });
    EXPECT_EQ(controller->selectedID(), "") << "what is selected has gone";
}

TEST_F(PortsViewModelTests, endsATreeAndAllAtOnce) {
    ListeningProcess tree({"127.0.0.1"}, {}, 3);
    start();
    refresh();
    controller->killTree(QString::fromStdString(idOf(tree)));
    settle();
    EXPECT_THAT(tree.awaitEnd(), ElementsAre(9, 9, 9));

    ListeningProcess one({"127.0.0.1"});
    ListeningProcess other({"127.0.0.1"});
    const std::string pid = std::to_string(one.pid());
    // One of them twice, and init, which is never signalled.
    tell("p" + pid + "\ncone\nPTCP\nn*:80\np" + pid + "\ncone\nPTCP\nn*:81\np" +
         std::to_string(other.pid()) + "\ncother\nPTCP\nn*:82\np1\ncinit\nPTCP\nn*:83\n");
    start();
    refresh();
    controller->setQuery("other");
    EXPECT_EQ(controller->countText(), "1 of 4 listeners");
    controller->askToKillAll();
    EXPECT_EQ(controller->killAllText(), "This sends SIGTERM to 3 process(es). Some may refuse or "
                                         "require higher privileges.");
    controller->killAll(true);
    settle();
    EXPECT_THAT(one.awaitEnd(), ElementsAre(9));
    EXPECT_THAT(other.awaitEnd(), ElementsAre(9));
    EXPECT_EQ(controller->banner(), "Signaled 2 process(es); 1 refused or gone");
    EXPECT_EQ(home.logged("ports kill all sent=2 failed=1 force=true\n"), 1);
    waitUntil([this] { return runs() == 2; });
}

TEST_F(PortsViewModelTests, doesNotSignalAnotherProcessOfTheSameNumber) {
    ListeningProcess process({"127.0.0.1"});
    const std::string pid = std::to_string(process.pid());
    // What the system tells of the process says later that it started at another time.
    const std::string stat = pid + " (a) S 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0";
    environment.layout.sources.proc = home.makeFolder("proc");
    home.write("proc/" + pid + "/stat", stat + " 1000 0 0\n");
    tell("p" + pid + "\nca\nPTCP\nn*:80\n");
    start();
    refresh();
    home.write("proc/" + pid + "/stat", stat + " 2000 0 0\n");
    controller->forceKill(QString::fromStdString(pid + "-80-TCP"));
    settle();
    EXPECT_EQ(controller->banner().toStdString(), "Process " + pid + " is no longer running");
    EXPECT_EQ(home.logged("ports kill failed pid=" + pid + ": Process " + pid +
                          " is no longer running" + "\n"),
              1);
    EXPECT_THAT(process.running(), ElementsAre(process.pid()));
}

TEST_F(PortsViewModelTests, keepsWhatItHasWhenAScanFails) {
    tell("p70\nca\nPTCP\nn*:80\np71\ncb\nPTCP\nn*:81\n");
    start();
    EXPECT_EQ(controller->emptyText(), "The listeners are not known");
    controller->refresh();
    controller->refresh();
    waitUntil([this] { return !controller->isScanning(); });
    EXPECT_EQ(runs(), 1U) << "one scan at a time";
    controller->select("71-81-TCP");

    useScript("echo '<b>no</b> permission' >&2; exit 3");
    refresh();
    EXPECT_EQ(controller->banner(), "lsof failed: <b>no</b> permission");
    EXPECT_EQ(home.logged("ports scan failed: lsof failed: <b>no</b> permission\n"), 1);
    EXPECT_THAT(ids(), ElementsAre("70-80-TCP", "71-81-TCP"));
    EXPECT_EQ(controller->selectedID(), "71-81-TCP");

    useScript("exit 1");
    refresh();
    EXPECT_THAT(ids(), ElementsAre());
    EXPECT_EQ(controller->emptyText(), "No process listens on a TCP port");
    EXPECT_EQ(controller->banner(), "lsof failed: <b>no</b> permission") << "left as it was";
    EXPECT_FALSE(controller->selected());
    std::filesystem::remove(home.path("lsof"));
    refresh();
    EXPECT_EQ(controller->banner().toStdString(), "lsof not found at " + home.path("lsof"));
}

TEST_F(PortsViewModelTests, filtersAndSortsWithoutLosingRows) {
    tell("p300\ncNode10\nPTCP\nn*:80\np100\ncnode2\nPTCP\nn127.0.0.1:80\np200\ncbad\xff\nPTCP\nn[::"
         "1]:22\n");
    start();
    refresh();
    EXPECT_THAT(ids(), ElementsAre("200-22-TCP", "100-80-TCP", "300-80-TCP"));
    EXPECT_EQ(
        controller->rows()->index(0, 0).data(controller->rows()->roleNames().key("processText")),
        QString::fromUtf8("bad\xef\xbf\xbd"));
    controller->sortBy(Ui::PortKey::Pid);
    EXPECT_THAT(ids(), ElementsAre("100-80-TCP", "200-22-TCP", "300-80-TCP"));
    controller->sortBy(Ui::PortKey::Process);
    EXPECT_THAT(ids(), ElementsAre("200-22-TCP", "100-80-TCP", "300-80-TCP"));
    controller->sortBy(Ui::PortKey::Process);
    EXPECT_THAT(ids(), ElementsAre("300-80-TCP", "100-80-TCP", "200-22-TCP"));
    controller->setQuery(" \tNODE ");
    EXPECT_THAT(ids(), ElementsAre("300-80-TCP", "100-80-TCP"));
    controller->setQuery("nothing like it");
    EXPECT_EQ(controller->emptyText(), "No listener matches the filter");
    controller->setQuery("  ");
    EXPECT_EQ(controller->countText(), "3 listeners");
}

TEST_F(PortsViewModelTests, asksAgainOnlyWhileItIsShown) {
    tell("p70\nca\nPTCP\nn*:80\n");
    start().setShown(true);
    waitUntil([this] { return runs() == 2; });
    controller->setShown(false);
    controller->setShown(true);
    waitUntil([this] { return !controller->isScanning(); });
    EXPECT_EQ(runs(), 2U) << "what is known is shown until the next tick";
}

TEST_F(PortsViewModelTests, waitsForAToolThatHangsAndEndsItWithItself) {
    useScript("echo $$ >'" + home.path("pid") + "'; exec sleep 1000");
    start().refresh();
    waitUntil([this] { return !controller->waitingText().isEmpty(); });
    const std::int32_t pid = std::stoi(home.read("pid"));
    controller->stopWaiting();
    EXPECT_FALSE(controller->isScanning());
    EXPECT_TRUE(controller->waitingText().isEmpty());
    EXPECT_TRUE(ListeningProcess::endsSoon(pid));
    controller->refresh();
    waitUntil([&] { return std::stoi("0" + home.read("pid")) > pid; });
    const std::int32_t next = std::stoi(home.read("pid"));
    stop();
    EXPECT_TRUE(ListeningProcess::endsSoon(next));
}

TEST_F(PortsViewModelTests, canBeDestroyedAtAnyTime) {
    tell("p1\nca\nPTCP\nn*:80\n");
    const auto kill = [this](bool includeChildren) {
        return [=, this] { controller->kill({1, "a", {}, 80, {}, "TCP"}, true, includeChildren); };
    };
    destroyAmidst([this] { start().refresh(); }, {[this] { controller->stopWaiting(); }, kill(true),
                                                  processEvents, [] {}, kill(false)});
}

}
}
