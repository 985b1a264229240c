#include <HostKit/ChildProcess.h>
#include <Support/MadeUpTool.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <thread>

namespace tolvane {
namespace {

using SteadyClock = std::chrono::steady_clock;
constexpr std::chrono::seconds watchdog{10};

class ChildProcess : public ::testing::Test {
  protected:
    ToolResult runScript(const std::string& script, Pipes pipes = Pipes::readWhileRunning,
                         std::optional<Seconds> timeout = std::nullopt,
                         const std::function<bool()>& isCancelled = {}) const {
        return run(
            {{madeUpTool(home, script), {"a b", "$(x)", "", "*"}}, pipes, timeout, isCancelled});
    }

    /// Whether all children have ended, and been asked for their ends, before the watchdog barks.
    static bool leavesNoChild() {
        const auto end = SteadyClock::now() + watchdog;
        siginfo_t ended{};
        while (::waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) == 0) {
            if (SteadyClock::now() > end) {
                return false;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return true;
    }

    TemporaryHome home;
};

std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(ChildProcess, tellsHowAToolEndedAndWhatItWrote) {
    struct Case {
        std::string script;
        std::int32_t status;
        std::string output;
        std::string message;
    };
    const Case cases[] = {
        {R"(echo out; printf ' \n\terr  or\r\n' >&2; exit 3)", 3, "out\n", "err  or"},
        {"kill -TERM $$; echo still here", 128 + SIGTERM, "", ""},
        {"printf '%s|' \"$@\"", 0, "a b|$(x)||*|", ""},
        {R"(printf 'a\377z\000'; printf '\377' >&2)", 0, std::string("a\uFFFDz\0", 6), "\uFFFD"},
        {"echo $LC_ALL $LANGUAGE", 0, "C.UTF-8\n", ""},
        {"ls /proc/self/fd | tr '\\n' ' '", 0, "0 1 2 3 ", ""}, // the last is the listed folder
        {"exec 1>&- 2>&-; sleep 0.2; exit 4", 4, "", ""}};
    ::setenv("LANGUAGE", "de", 1);
    const int inheritable = ::open("/dev/null", O_RDONLY);
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    for (const Case& each : cases) {
        for (const Pipes pipes :
             {Pipes::readWhileRunning, Pipes::readAfterExit, Pipes::takeAfterExit}) {
            const ToolResult result = runScript(each.script, pipes, watchdog.count());
            EXPECT_EQ(result.status, each.status) << each.script;
            EXPECT_EQ(result.output, each.output) << each.script;
            EXPECT_EQ(result.message, each.message) << each.script;
        }
    }
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    ::close(inheritable);
}

TEST_F(ChildProcess, tellsWhyAToolWasNotStarted) {
    const auto message = [](const FileURL& executable) {
        const ToolResult result = run({.tool = {executable, {}}});
        EXPECT_EQ(result.status, ToolResult::notStarted);
        return result.message;
    };
    const FileURL noProgram = madeUpTool(home, "");
    home.write("tool", "neither a script nor a program");
    EXPECT_EQ(message(home.url("missing")), "No such file or directory");
    EXPECT_EQ(message(home.write("no right to run")), "Permission denied");
    EXPECT_EQ(message(noProgram), "Exec format error");
    EXPECT_TRUE(isExecutableFile(noProgram));
    for (const char* const name : {"missing", "no right to run", ""}) {
        EXPECT_FALSE(isExecutableFile(home.url(name))) << name;
    }
    EXPECT_EQ(launchDetached({home.url("missing"), {}}).error().code, ENOENT);
    EXPECT_EQ(launchDetached({FileURL("no such program"), {}}).error().code, ENOENT);
    EXPECT_TRUE(launchDetached({FileURL("true"), {}})) << "found where programs are";
}

TEST_F(ChildProcess, readsAnyAmountFromBothStreamsWhileTheToolRuns) {
    const std::string script = "head -c 70000 /dev/zero | tr '\\0' e >&2\n"
                               "head -c 70000 /dev/zero | tr '\\0' o";
    const ToolResult result = runScript(script);
    EXPECT_EQ(result.output, std::string(70'000, 'o'));
    EXPECT_EQ(result.message, std::string(70'000, 'e'));
    EXPECT_EQ(runScript(script, Pipes::readAfterExit, 1).message, "Timed out after 1 s");
    EXPECT_TRUE(leavesNoChild());
}

TEST_F(ChildProcess, endsWithTheTimeOutWhateverTheToolDoes) {
    for (const char* const script :
         {"exec sleep 100", "trap '' TERM; sleep 2; exit 5", "sleep 15 & echo done; exit 0"}) {
        for (const Pipes pipes : {Pipes::readWhileRunning, Pipes::readAfterExit}) {
            const auto start = SteadyClock::now();
            const ToolResult result = runScript(script, pipes, 1.25);
            EXPECT_EQ(result.status, ToolResult::timedOut) << script;
            EXPECT_EQ(result.output, "") << script;
            EXPECT_EQ(result.message, "Timed out after 1 s") << script;
            EXPECT_LT(SteadyClock::now() - start, watchdog) << script;
        }
    }
    const char* const script = "sleep 15 & echo done; exit 0";
    EXPECT_EQ(runScript(script, Pipes::takeAfterExit, 5).output, "done\n") << "nor for others";
    EXPECT_TRUE(leavesNoChild());
}

TEST_F(ChildProcess, makesTheToolOfACancelledRunEnd) {
    for (const char* const script : {"exec sleep 100", "trap '' TERM; exec sleep 100"}) {
        int asked = 0;
        const ToolResult result =
            runScript(script, Pipes::readWhileRunning, std::nullopt, [&] { return ++asked > 3; });
        EXPECT_EQ(result.status, ToolResult::cancelled) << script;
        EXPECT_TRUE(leavesNoChild()) << script;
    }
}

TEST_F(ChildProcess, leavesNoDescriptorBehind) {
    const std::ptrdiff_t before = openDescriptors();
    for (int count = 0; count < 50; ++count) {
        runScript("exit 0");
        runScript("exit 0", Pipes::readAfterExit);
        runScript("exec sleep 100", Pipes::readWhileRunning, 0);
        run({.tool = {home.url("missing"), {}}});
    }
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_TRUE(leavesNoChild());
}

TEST_F(ChildProcess, startsWhatOutlivesIt) {
    const FileURL tool =
        madeUpTool(home, R"(echo $LC_ALL $(ps -o sid= -p $$) $$ >"$1.new"; mv "$1.new" "$1")");
    ::setenv("LC_ALL", "C", 1);
    ASSERT_TRUE(launchDetached({tool, {home.path("told")}}));
    EXPECT_TRUE(leavesNoChild());
    std::istringstream told(home.read("told"));
    std::string locale;
    int session = 0;
    int pid = -1;
    told >> locale >> session >> pid;
    EXPECT_EQ(locale, "C") << "the user's own";
    EXPECT_EQ(session, pid) << "a session of its own, which no terminal ends";
}

}
}
