#include <PortKit/PortKillerService.h>
#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>
#include <Support/OrdinaryUser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace tolvane {
namespace {

using testing::Each;
using std::string_literals::operator""s;
using testing::ElementsAre;

constexpr bool includeChildren = true;
constexpr bool alone = false;

PortListener listener(std::int32_t pid) {
    return {pid, "name", std::nullopt, 80, {"*:80"}, "TCP"};
}

std::string outcome(const Result<void, PortKillError>& sent) {
    return sent ? "" : sent.error().description();
}

class PortKiller : public ::testing::Test {
  protected:
    const HostLayout layout = HostLayout::current();
    const PortKillerService killer{layout.tools, layout.sources};
    TemporaryHome home;
};

TEST_F(PortKiller, ordersATreeFromItsLeaves) {
    const auto tree = [](std::string_view text) {
        return PortKillerService::processTree(100, text);
    };
    EXPECT_THAT(tree("  100     1\n\t101\t100 \n  102   100\n  103   101\n  104     1\n"),
                ElementsAre(103, 101, 102, 100));
    EXPECT_THAT(tree(""), ElementsAre(100));
    EXPECT_THAT(tree("PID PPID\n101 x 100\n102 100 1\n103\n104 100x\n105 4294967396\n106 100\r"),
                ElementsAre(101, 100))
        << "only lines with exactly two numbers among their words";
    EXPECT_THAT(tree("101 100\n101 100\n100 101\n100 100\n102 101\n101 102"),
                ElementsAre(102, 101, 100))
        << "a circle ends where it began";
    std::string chain;
    for (int pid = 100; pid < 300'100; ++pid) {
        chain += std::to_string(pid + 1) + " " + std::to_string(pid) + "\n";
    }
    const std::vector<std::int32_t> deep = tree(chain);
    EXPECT_EQ(deep.size(), 300'001U);
    EXPECT_EQ(deep.front(), 300'100);
    std::string longLine;
    longLine.resize(10'000'000, '1');
    EXPECT_THAT(tree(longLine + "\n" + "\0\xff 100\n1\0 100"s), ElementsAre(100));
}

TEST_F(PortKiller, endsOneProcessOrItsTree) {
    ListeningProcess tree({"127.0.0.1"}, "tree", 3);
    std::vector<std::int32_t> order = tree.pids();
    std::reverse(order.begin(), order.end());
    EXPECT_EQ(killer.processTree(tree.pid()), order);
    EXPECT_EQ(outcome(killer.kill(listener(tree.pid()), PortKillSignal::force, includeChildren,
                                  ::getpid())),
              "");
    EXPECT_THAT(tree.awaitEnd(), ElementsAre(SIGKILL, SIGKILL, SIGKILL));

    ListeningProcess leaf({"127.0.0.1"}, "", 2);
    EXPECT_EQ(outcome(killer.kill(listener(leaf.pids()[1]), PortKillSignal::terminate, alone,
                                  ::getpid())),
              "");
    EXPECT_TRUE(ListeningProcess::endsSoon(leaf.pids()[1]));
    EXPECT_THAT(leaf.running(), ElementsAre(leaf.pid()));
    EXPECT_EQ(outcome(killer.kill(listener(leaf.pids()[0]), PortKillSignal::terminate, alone,
                                  ::getpid())),
              "");
    EXPECT_THAT(leaf.awaitEnd(), Each(SIGTERM));
}

TEST_F(PortKiller, signalsTheRootAloneWhenProcessesCannotBeListed) {
    for (const FileURL& lister :
         {home.url("missing"), madeUpTool(home, "echo nonsense >&2; exit 1")}) {
        ListeningProcess processes({"127.0.0.1"}, "", 2);
        const PortKillerService other({.lsof = {}, .processTree = {lister, {}}}, layout.sources);
        EXPECT_TRUE(other.kill(listener(processes.pid()), PortKillSignal::force, includeChildren,
                               ::getpid()));
        EXPECT_TRUE(ListeningProcess::endsSoon(processes.pid()));
        EXPECT_THAT(processes.running(), ElementsAre(processes.pids()[1]));
    }
}

TEST_F(PortKiller, sparesProtectedAndLaterProcesses) {
    ListeningProcess tree({"127.0.0.1"}, "", 3);
    const std::string own = std::to_string(tree.pids()[1]);
    EXPECT_EQ(outcome(killer.kill(listener(tree.pids()[1]), PortKillSignal::force, alone,
                                  tree.pids()[1])),
              "Refusing to signal protected process " + own);
    const auto started = Processes(layout.sources).startTime(tree.pid());
    ASSERT_TRUE(started);
    EXPECT_EQ(outcome(killer.kill(listener(tree.pid()), PortKillSignal::force, includeChildren,
                                  ::getpid(), *started + 1)),
              "Process " + std::to_string(tree.pid()) + " is no longer running")
        << "another process has the number";
    EXPECT_EQ(tree.running(), tree.pids());

    EXPECT_EQ(outcome(killer.kill(listener(tree.pid()), PortKillSignal::force, includeChildren,
                                  tree.pids()[1], started)),
              "Refusing to signal protected process " + own)
        << "what lies deeper has been signalled by then, what lies above is not";
    EXPECT_TRUE(ListeningProcess::endsSoon(tree.pids()[2]));
    EXPECT_THAT(tree.running(), ElementsAre(tree.pids()[0], tree.pids()[1]));
}

TEST_F(PortKiller, tellsWhyAProcessWasNotSignalled) {
    constexpr std::int32_t none = 2'147'483'647;
    EXPECT_EQ(outcome(killer.kill(listener(none), PortKillSignal::terminate, alone, ::getpid())),
              "Process 2147483647 is no longer running");
    EXPECT_EQ(PortKillError::failed(7, "Invalid argument").description(),
              "Could not signal process 7: Invalid argument");
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can have processes of another user";
    }
    const ListeningProcess others({"127.0.0.1"});
    EXPECT_EQ(asOrdinaryUser([&] {
                  return outcome(killer.kill(listener(others.pid()), PortKillSignal::force, alone,
                                             ::getpid()));
              }),
              "Not permitted to signal process " + std::to_string(others.pid()) +
                  " (try running as its owner)");
    EXPECT_EQ(others.running(), others.pids());
}

}
}
