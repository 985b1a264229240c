#include <PortKit/PortKillerService.h>
#include <Support/ListeningProcess.h>
#include <Support/RunProgram.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

namespace tolvane {
namespace {

/// Run in a process namespace of its own, where a signal to all is one to the test's processes.
class SignalFaults : public ::testing::Test {
  protected:
    std::string outcome(std::int32_t pid, bool includeChildren, std::int32_t currentPID,
                        std::optional<StartTime> startTime = std::nullopt) const {
        const PortListener listener(pid, "name", std::nullopt, 80, {"*:80"}, "TCP");
        const auto sent =
            killer.kill(listener, PortKillSignal::force, includeChildren, currentPID, startTime);
        return sent ? "sent" : sent.error().description();
    }

    const HostLayout layout = HostLayout::current();
    const PortKillerService killer{layout.tools, layout.sources};
};

/// A process that waits to be ended, and bears this number if it is not 0; 0 when the system does
/// not let us choose.
pid_t makeProcess(pid_t wanted) {
    if (wanted != 0) {
        std::ofstream("/proc/sys/kernel/ns_last_pid") << wanted - 1;
    }
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::pause();
        ::_exit(0);
    }
    return wanted == 0 || pid == wanted ? pid : 0;
}

TEST_F(SignalFaults, noGroupFirstOrOwnProcessIsSignalled) {
    const ListeningProcess bystanders({"127.0.0.1"}, "", 3);
    const ProgramRun run = runChild([&](std::FILE* output) {
        for (const bool includeChildren : {false, true}) {
            for (const std::int32_t pid : {0, -1, 1, -bystanders.pid()}) {
                const std::string expected =
                    "Refusing to signal protected process " + std::to_string(pid);
                if (outcome(pid, includeChildren, ::getpid()) != expected) {
                    std::fprintf(output, "%d was not refused\n", pid);
                }
            }
        }
        const std::string own =
            "Refusing to signal protected process " + std::to_string(::getpid());
        if (outcome(::getpid(), false, ::getpid()) != own) {
            std::fputs("own process was not refused\n", output);
        }
    });
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(bystanders.running(), bystanders.pids());
}

TEST_F(SignalFaults, aLaterProcessOfTheSameNumberIsSpared) {
    const pid_t listed = makeProcess(0);
    const auto started = Processes(layout.sources).startTime(listed);
    ASSERT_TRUE(started);
    ::kill(listed, SIGKILL);
    ::waitpid(listed, nullptr, 0);
    const std::string gone = "Process " + std::to_string(listed) + " is no longer running";
    EXPECT_EQ(outcome(listed, false, 0, started), gone) << "nobody has the number";
    // The system counts in hundredths of a second.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    const pid_t later = makeProcess(listed);
    if (later == 0) {
        GTEST_SKIP() << "the system does not let us choose a process's number";
    }
    EXPECT_EQ(outcome(later, false, 0, started), gone);
    EXPECT_EQ(outcome(later, true, 0, started), gone);
    EXPECT_EQ(::waitpid(later, nullptr, WNOHANG), 0) << "it lives";
    EXPECT_EQ(outcome(later, false, 0, Processes(layout.sources).startTime(later)), "sent");
    int status = 0;
    ::waitpid(later, &status, 0);
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
}

}
}
