#include <PerformanceKit/MaintenanceService.h>
#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>
#include <Support/OrdinaryUser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <tuple>

namespace tolvane {
namespace {

using testing::ElementsAre;

enum Action { flush, rebuild, thin, reindex, purge };

/// Layouts whose tools are all one made-up program.
class Maintenance : public ::testing::Test {
  protected:
    /// "+" before the message of a success.
    static std::string outcome(Action action, const HostLayout& layout,
                               const MaintenanceService::StopTest& stop = {}) {
        const MaintenanceService by(layout, systemFileManager(layout));
        const MaintenanceOutcome found = action == flush     ? by.flushDNS(stop)
                                         : action == rebuild ? by.rebuildLaunchServices(stop)
                                         : action == thin ? by.thinLocalSnapshots("/", 5, 4, stop)
                                         : action == reindex ? by.reindexSpotlight("/", stop)
                                                             : by.freeRAMWithAdministrator(stop);
        return (found.isSuccess() ? "+" : "") + found.message;
    }
    static HostLayout withTool(HostLayout layout, const FileURL& tool) {
        MaintenanceTools& tools = layout.maintenance;
        tools.prompt.tool.executable = tools.flushResolver.executable =
            tools.rebuildRegistry.executable = layout.snapshots.system.list.executable = tool;
        tools.beforePurge.reset();
        for (ContentIndex& index : tools.indexes) {
            index.mark = index.reset.executable = tool;
            if (index.start) {
                index.start->executable = tool;
            }
        }
        return layout;
    }
    HostLayout darwin(const std::string& script) const {
        return withTool(HostLayout::darwin(home.url()), madeUpTool(home, script));
    }
    HostLayout freedesktop(const std::string& script) const {
        return withTool(HostLayout::freedesktop(home.url(), {}), madeUpTool(home, script));
    }

    const TemporaryHome home;
};

TEST_F(Maintenance, tellsInFixedWordsHowAToolEnded) {
    const std::tuple<Action, std::string, std::string> cases[] = {
        {flush,
         "Flushed the user DNS cache. System-wide mDNSResponder flush requires administrator "
         "rights.",
         "dscacheutil"},
        {rebuild, "Rebuilt the Launch Services database for this user.", "lsregister"},
        {thin, "Requested Time Machine to thin local snapshots on /.", "tmutil"},
        {reindex, "Spotlight index rebuild started for /. This can take several minutes.",
         "mdutil"},
        {purge, "Kernel disk buffers purged.", "purge"}};
    for (const auto& [action, success, tool] : cases) {
        for (const HostLayout& layout : {darwin(""), freedesktop("")}) {
            const auto told = [&, of = action](const std::string& script) {
                madeUpTool(home, script);
                return outcome(of, layout);
            };
            EXPECT_EQ(told("echo cancel; echo cancel >&2"), "+" + success);
            EXPECT_EQ(told("echo ignored; exit 3"), tool + " exited with 3");
            EXPECT_EQ(told("printf ' \\nfailed\\377  so\\n' >&2; exit 3"), "failed\uFFFD  so");
            EXPECT_EQ(told("echo 'User cAnCeled. (-128)' >&2; exit 1"),
                      action < thin ? "User cAnCeled. (-128)" : "Canceled by the user.");
            EXPECT_EQ(outcome(action, withTool(layout, home.url("none"))),
                      action == rebuild ? "lsregister not found" : "No such file or directory");
        }
    }
    EXPECT_EQ(outcome(rebuild, withTool(darwin(""), home.write("plain"))), "lsregister not found");
}

TEST_F(Maintenance, startsTheToolsOfEachSystem) {
    const std::string tell = "printf '%s|' \"$@\" >&2; exit 1";
    const HostLayout mac = darwin(tell);
    EXPECT_EQ(outcome(flush, mac), "-flushcache|");
    EXPECT_EQ(outcome(rebuild, mac), "-f|-r|-domain|local|-domain|user|");
    EXPECT_EQ(outcome(thin, mac), R"(-e|do shell script "/usr/bin/tmutil thinlocalsnapshots )"
                                  R"(\"/\" 5 4" with administrator privileges|)");
    EXPECT_EQ(outcome(reindex, mac), R"(-e|do shell script "/usr/bin/mdutil -E \"/\"" with )"
                                     R"(administrator privileges|)");
    EXPECT_EQ(outcome(purge, mac),
              R"(-e|do shell script "/usr/sbin/purge" with administrator privileges|)");
    EXPECT_EQ(MaintenanceService::administratorScript(R"(a\"b)"),
              R"(do shell script "a\\\"b" with administrator privileges)");
    EXPECT_EQ(MaintenanceService::thinSnapshotsCommand("/V", -5, 1),
              R"(/usr/bin/tmutil thinlocalsnapshots "/V" 0 1)");
    const HostLayout layout = freedesktop(tell);
    EXPECT_EQ(outcome(flush, layout), "flush-caches|");
    EXPECT_EQ(outcome(rebuild, layout), home.path(".local/share/applications|"));
    EXPECT_EQ(outcome(thin, layout),
              "--disable-internal-agent|/usr/bin/snapper|-c|root|cleanup|all|");
    EXPECT_EQ(outcome(purge, layout),
              "--disable-internal-agent|/usr/sbin/sysctl|-q|-w|vm.drop_caches=1|");
    EXPECT_EQ(outcome(reindex, layout), "reset|--filesystem|") << "without a prompt";
    const MaintenanceService service(layout, systemFileManager(layout));
    EXPECT_EQ(service.thinLocalSnapshots("/mnt", 5, 4).message, "No snapshots are kept of /mnt");
    EXPECT_EQ(outcome(purge, freedesktop("echo 'Request dismissed' >&2; exit 126")),
              "Canceled by the user.");
    EXPECT_EQ(outcome(purge, freedesktop("echo 'Not authorized' >&2; exit 127")), "Not authorized");
}

TEST_F(Maintenance, preparesWhatItsToolsNeed) {
    HostLayout layout = freedesktop("[ -d \"$1\" ] || exit 1");
    EXPECT_EQ(outcome(rebuild, layout), "+Rebuilt the Launch Services database for this user.");
    EXPECT_TRUE(home.has(".local/share/applications")) << "made when it was missing";
    const std::string file = home.path("written");
    layout.maintenance.indexes[0].mark = home.url("none");
    madeUpTool(home, "echo $0 \"$@\" >>" + file);
    EXPECT_EQ(outcome(reindex, layout).front(), '+');
    const std::string tool = home.path("tool");
    EXPECT_EQ(home.read("written"), tool + " reset --filesystem\n" + tool + " daemon --start\n")
        << "an indexer that has ended is started again";
    layout.maintenance.prompt.tool = {madeUpTool(home, "cat " + file + " >&2; exit 1"), {}};
    layout.maintenance.beforePurge =
        Tool{madeUpTool(home, "echo written >" + file + "; exit 7", "sync"), {}};
    EXPECT_EQ(outcome(purge, layout), "written");
}

TEST_F(Maintenance, namesLocalSnapshots) {
    const auto names = [](const HostLayout& layout) {
        return MaintenanceService(layout, systemFileManager(layout)).localSnapshots();
    };
    const std::string lines = R"(printf 'x\n\n com.apple.TimeMachine.b\ncom.apple.TimeMachine'; )";
    EXPECT_THAT(names(darwin(lines)),
                ElementsAre(" com.apple.TimeMachine.b", "com.apple.TimeMachine"));
    EXPECT_THAT(names(darwin(lines + "exit 1")), ElementsAre());
    EXPECT_THAT(names(freedesktop("echo '1,2026-11-21 05:46:58,'")),
                ElementsAre("com.apple.TimeMachine.2026-11-21-054658.1"));
}

TEST_F(Maintenance, asksOnlyTheMeantProcessToEnd) {
    const HostLayout layout = HostLayout::current();
    const MaintenanceService service(layout, systemFileManager(layout));
    ListeningProcess process({"127.0.0.1"});
    const std::int32_t meant = process.pid();
    const std::string number = std::to_string(meant);
    const std::string gone = "Process " + number + " is no longer running";
    for (const std::int32_t pid : {0, 1, -1, -meant, meant}) {
        EXPECT_EQ(service.terminate(pid, meant).message,
                  "Refusing to signal protected process " + std::to_string(pid));
    }
    const auto started = Processes(layout.sources).startTime(meant);
    EXPECT_EQ(service.terminate(meant, 5, *started + 1).message, gone) << "another's";
    if (::geteuid() == 0) {
        EXPECT_EQ(asOrdinaryUser([&] { return service.terminate(meant, 5).message; }),
                  "Not permitted to signal process " + number);
    }
    EXPECT_EQ(process.running(), process.pids());
    EXPECT_EQ(service.terminate(meant, 5, started),
              MaintenanceOutcome::success("Sent SIGTERM to process " + number));
    EXPECT_THAT(process.awaitEnd(), ElementsAre(SIGTERM));
    EXPECT_EQ(service.terminate(meant, 5).message, gone);
}

}
}
