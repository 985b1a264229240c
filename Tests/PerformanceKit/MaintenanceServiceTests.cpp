#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>
#include <Support/OrdinaryUser.h>

#include <PerformanceKit/MaintenanceService.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using StopTest = MaintenanceService::StopTest;
using Action = MaintenanceOutcome (*)(const MaintenanceService&, const StopTest&);

constexpr Action flush = [](const MaintenanceService& service, const StopTest& stop) {
    return service.flushDNS(stop);
};
constexpr Action rebuild = [](const MaintenanceService& service, const StopTest& stop) {
    return service.rebuildLaunchServices(stop);
};
constexpr Action thin = [](const MaintenanceService& service, const StopTest& stop) {
    return service.thinLocalSnapshots("/", 5, 4, stop);
};
constexpr Action reindex = [](const MaintenanceService& service, const StopTest& stop) {
    return service.reindexSpotlight("/", stop);
};
constexpr Action purge = [](const MaintenanceService& service, const StopTest& stop) {
    return service.freeRAMWithAdministrator(stop);
};

/// Layouts whose tools are all one made-up program.
class Maintenance : public ::testing::Test {
  protected:
    /// "+" before the message of a success.
    std::string outcome(Action action, const HostLayout& layout, const StopTest& stop = {}) const {
        const MaintenanceService service(layout, systemFileManager(layout));
        const MaintenanceOutcome found = action(service, stop);
        return (found.isSuccess() ? "+" : "") + found.message;
    }
    HostLayout withTool(HostLayout layout, const FileURL& tool) const {
        MaintenanceTools& tools = layout.maintenance;
        tools.prompt.tool.executable = tools.flushResolver.executable =
            tools.rebuildRegistry.executable = layout.snapshots.system.list.executable = tool;
        tools.beforePurge.reset();
        for (Tool& each : tools.reindex) {
            each.executable = tool;
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
    const std::string dns = "+Flushed the user DNS cache. System-wide mDNSResponder flush requires "
                            "administrator rights.";
    const std::string canceled = "Canceled by the user.";
    struct Case {
        Action action;
        std::string success;
        std::string exited;
        std::string whenCanceled;
    };
    const Case cases[] = {{flush, dns, "dscacheutil exited with 3", "User cAnCeled. (-128)"},
                          {rebuild, "+Rebuilt the Launch Services database for this user.",
                           "lsregister exited with 3", "User cAnCeled. (-128)"},
                          {thin, "+Requested Time Machine to thin local snapshots on /.",
                           "tmutil exited with 3", canceled},
                          {reindex,
                           "+Spotlight index rebuild started for /. This can take several minutes.",
                           "mdutil exited with 3", canceled},
                          {purge, "+Kernel disk buffers purged.", "purge exited with 3", canceled}};
    for (const Case& each : cases) {
        for (const HostLayout& layout : {darwin(""), freedesktop("")}) {
            const auto told = [&](const std::string& script) {
                madeUpTool(home, script);
                return outcome(each.action, layout);
            };
            EXPECT_EQ(told("echo cancel; echo cancel >&2"), each.success);
            EXPECT_EQ(told("echo ignored; exit 3"), each.exited);
            EXPECT_EQ(told("printf ' \\nfailed\\377  so\\n' >&2; exit 3"), "failed\uFFFD  so");
            EXPECT_EQ(told("echo 'User cAnCeled. (-128)' >&2; exit 1"), each.whenCanceled);
            EXPECT_EQ(outcome(each.action, withTool(layout, home.url("none"))),
                      each.action == rebuild ? "lsregister not found"
                                             : "No such file or directory");
        }
    }
    home.write("plain");
    EXPECT_EQ(outcome(rebuild, withTool(darwin(""), home.url("plain"))), "lsregister not found");
}

TEST_F(Maintenance, handsCommandsToThePromptOfEachSystem) {
    const std::string tell = "printf '%s|' \"$@\" >&2; exit 1";
    EXPECT_EQ(outcome(thin, darwin(tell)),
              R"(-e|do shell script "/usr/bin/tmutil thinlocalsnapshots \"/\" 5 4" with )"
              R"(administrator privileges|)");
    EXPECT_EQ(outcome(reindex, darwin(tell)),
              R"(-e|do shell script "/usr/bin/mdutil -E \"/\"" with administrator privileges|)");
    EXPECT_EQ(outcome(purge, darwin(tell)),
              R"(-e|do shell script "/usr/sbin/purge" with administrator privileges|)");
    EXPECT_EQ(MaintenanceService::administratorScript(R"(a\"b)"),
              R"(do shell script "a\\\"b" with administrator privileges)");
    EXPECT_EQ(MaintenanceService::thinSnapshotsCommand("/V", -5, 1),
              R"(/usr/bin/tmutil thinlocalsnapshots "/V" 0 1)");
    EXPECT_EQ(outcome(thin, freedesktop(tell)),
              "--disable-internal-agent|/usr/bin/snapper|-c|root|cleanup|all|");
    EXPECT_EQ(outcome(purge, freedesktop(tell)),
              "--disable-internal-agent|/usr/sbin/sysctl|-q|-w|vm.drop_caches=1|");
    EXPECT_EQ(outcome(reindex, freedesktop(tell)), "reset|--filesystem|") << "without a prompt";
    EXPECT_EQ(outcome(purge, freedesktop("echo 'Request dismissed' >&2; exit 126")),
              "Canceled by the user.");
    EXPECT_EQ(outcome(purge, freedesktop("echo 'Error: Not authorized' >&2; exit 127")),
              "Error: Not authorized");
    const HostLayout layout = freedesktop(tell);
    EXPECT_EQ(MaintenanceService(layout, systemFileManager(layout))
                  .thinLocalSnapshots("/mnt", 5, 4)
                  .message,
              "No snapshots are kept of /mnt");
}

TEST_F(Maintenance, preparesWhatItsToolsNeed) {
    HostLayout layout = freedesktop("[ -d \"$1\" ] || exit 1");
    EXPECT_EQ(outcome(rebuild, layout), "+Rebuilt the Launch Services database for this user.");
    EXPECT_TRUE(home.has(".local/share/applications")) << "made when it was missing";
    layout.maintenance.reindex[0].executable = home.url("none");
    layout.maintenance.reindex[1].executable = madeUpTool(home, "echo second >&2; exit 1");
    EXPECT_EQ(outcome(reindex, layout), "second") << "the first that is there";
    layout = freedesktop("cat written >&2; exit 1");
    layout.maintenance.beforePurge =
        Tool{madeUpTool(home, "echo written >" + home.path("written") + "; exit 7", "sync"), {}};
    layout.maintenance.prompt.tool = {
        madeUpTool(home, "cat " + home.path("written") + " >&2; exit 1"), {}};
    EXPECT_EQ(outcome(purge, layout), "written");
}

TEST_F(Maintenance, endsWithItsCallersPatience) {
    for (const Action action : {flush, thin}) {
        int asked = 0;
        EXPECT_EQ(
            outcome(action, darwin("trap '' TERM; exec sleep 100"), [&] { return ++asked > 2; }),
            action == flush ? "Operation canceled" : "Canceled by the user.");
    }
}

TEST_F(Maintenance, namesLocalSnapshots) {
    const auto names = [](const HostLayout& layout) {
        return MaintenanceService(layout, systemFileManager(layout)).localSnapshots();
    };
    const std::string lines = "printf 'Snapshots:\\n\\n  com.apple.TimeMachine.b \\nother\\n"
                              "com.apple.TimeMachine.a'; ";
    EXPECT_THAT(names(darwin(lines)),
                ElementsAre("  com.apple.TimeMachine.b ", "com.apple.TimeMachine.a"));
    EXPECT_THAT(names(darwin(lines + "exit 1")), IsEmpty());
    EXPECT_THAT(names(freedesktop("echo n,d,c; echo '1,2026-11-21 05:46:58,'")),
                ElementsAre("com.apple.TimeMachine.2026-11-21-054658.1"));
}

TEST_F(Maintenance, asksOnlyTheMeantProcessToEnd) {
    const HostLayout layout = HostLayout::current();
    const MaintenanceService service(layout, systemFileManager(layout));
    ListeningProcess process({"127.0.0.1"});
    const std::string number = std::to_string(process.pid());
    for (const auto& [pid, own] : std::initializer_list<std::pair<std::int32_t, std::int32_t>>{
             {0, 5}, {1, 5}, {-1, 5}, {-process.pid(), 5}, {process.pid(), process.pid()}}) {
        EXPECT_EQ(service.terminate(pid, own),
                  MaintenanceOutcome::failure("Refusing to signal protected process " +
                                              std::to_string(pid)));
    }
    const auto started = Processes(layout.sources).startTime(process.pid());
    EXPECT_EQ(service.terminate(process.pid(), ::getpid(), *started + 1).message,
              "Process " + number + " is no longer running")
        << "another has the number";
    if (::geteuid() == 0) {
        EXPECT_EQ(asOrdinaryUser([&] { return service.terminate(process.pid(), 5).message; }),
                  "Not permitted to signal process " + number);
    }
    EXPECT_EQ(process.running(), process.pids());
    EXPECT_EQ(service.terminate(process.pid(), ::getpid(), started),
              MaintenanceOutcome::success("Sent SIGTERM to process " + number));
    EXPECT_THAT(process.awaitEnd(), ElementsAre(SIGTERM));
    EXPECT_EQ(service.terminate(process.pid(), ::getpid()).message,
              "Process " + number + " is no longer running");
}

}
}
