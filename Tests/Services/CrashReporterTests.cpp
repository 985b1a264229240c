#include <HostKit/CrashReporter.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>

namespace tolvane {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::KilledBySignal;
using testing::MatchesRegex;

/// Fresh dispositions, whatever a sanitizer put in their place, and no core files.
void installIn(const FileURL& folder) {
    for (const int number : {SIGSEGV, SIGABRT, SIGFPE}) {
        std::signal(number, SIG_DFL);
    }
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    ASSERT_TRUE(CrashReporter::install(folder, "1.2.3").has_value());
}

// Calls itself until the stack is used up: the depth is never reached, and what is done with the
// result keeps the calls from being folded into a loop.
[[gnu::noinline]] int useUpStack(const volatile int* depth) {
    volatile int room[1024];
    room[0] = *depth - 1;
    return room[0] == 0 ? 0 : useUpStack(room) + room[0];
}

/// Runs `crash` in a process of its own and gives what it left behind.
std::string reportOf(int signalNumber, const std::function<void()>& crash) {
    const TemporaryHome home;
    const FileURL folder = home.url("Logs/DiagnosticReports");
    EXPECT_EXIT(
        {
            installIn(folder);
            crash();
        },
        KilledBySignal(signalNumber), "");
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        EXPECT_THAT(entry.path().filename().string(),
                    MatchesRegex("Tolvane-[0-9]{4}-[0-9]{2}-[0-9]{2}-[0-9]{6}\\.crash"));
        return home.read("Logs/DiagnosticReports/" + entry.path().filename().string());
    }
    return "";
}

TEST(CrashReporterDeathTest, reportsAFatalSignalAndDiesOfIt) {
    EXPECT_THAT(reportOf(SIGSEGV, [] { std::raise(SIGSEGV); }),
                AllOf(HasSubstr("Tolvane 1.2.3\n"), ContainsRegex("Date: 20[0-9-]*T[0-9:]*Z"),
                      HasSubstr("SIGSEGV"), ContainsRegex("Back trace:\n.*0x[0-9a-f]")));
}

TEST(CrashReporterDeathTest, reportsAnUncaughtException) {
    const auto crash = [] { throw std::runtime_error("nobody catches this"); };
    EXPECT_THAT(reportOf(SIGABRT, [&] { std::thread(crash).join(); }),
                HasSubstr("Exception: nobody catches this\n"));
}

TEST(CrashReporterDeathTest, reportsAStackThatIsUsedUp) {
    const auto crash = [] {
        volatile int start = -1;
        static_cast<void>(useUpStack(&start));
    };
    const auto crashElsewhere = [&] {
        std::thread([&] {
            const CrashReporter::ThreadStack stack;
            crash();
        }).join();
    };
    EXPECT_THAT(reportOf(SIGSEGV, crash), HasSubstr("SIGSEGV at address 0x"));
    EXPECT_THAT(reportOf(SIGSEGV, crashElsewhere), HasSubstr("SIGSEGV at address 0x"));
}

TEST(CrashReporterDeathTest, letsTheProgramDieWhenNothingCanBeWritten) {
    EXPECT_EXIT(
        {
            installIn(FileURL("/proc/no such folder"));
            std::raise(SIGABRT);
        },
        KilledBySignal(SIGABRT), "");
}

}
}
