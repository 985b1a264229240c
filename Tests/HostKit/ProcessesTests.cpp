#include <HostKit/ListeningSockets.h>
#include <HostKit/Number.h>
#include <HostKit/Processes.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <limits>

namespace tolvane {
namespace {

TEST(Processes, tellWhatTheSystemTellsOfThem) {
    const Processes here(HostLayout::current().sources);
    EXPECT_EQ(here.executablePath(::getpid()), std::filesystem::read_symlink("/proc/self/exe"));
    EXPECT_TRUE(here.startTime(::getpid()));
    EXPECT_EQ(here.executablePath(-1), std::nullopt);
    EXPECT_EQ(here.startTime(std::numeric_limits<std::int32_t>::max()), std::nullopt);

    const TemporaryHome proc;
    const Processes made({.proc = proc.url(), .sys = {}});
    proc.makeLink("1/exe", "/opt/not \xff UTF-8 (deleted)");
    proc.makeLink("2/exe", "/opt/a (deleted) (deleted)");
    proc.write("1/stat", "1 (a) 7 (\n) S 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 4711 23");
    proc.write("2/stat", "2 (cut off) S 0 4");
    EXPECT_EQ(made.executablePath(1), "/opt/not \xff UTF-8");
    EXPECT_EQ(made.executablePath(2), "/opt/a (deleted)");
    proc.makeLink("3x/exe", "/opt/no process");
    EXPECT_THAT(made.executablePaths(),
                testing::UnorderedElementsAre("/opt/not \xff UTF-8", "/opt/a (deleted)"));
    EXPECT_EQ(made.startTime(1), StartTime{4711});
    EXPECT_EQ(made.startTime(2), std::nullopt);
}

TEST(Processes, neverSignalAGroup) {
    const Processes here(HostLayout::current().sources);
    for (const std::int32_t pid : {0, -1, -::getpgrp()}) {
        EXPECT_EQ(here.signal(pid, SIGCONT).error().code, EINVAL) << pid;
    }
    EXPECT_TRUE(here.signal(::getpid(), SIGCONT));
}

TEST(ListeningSockets, areCountedBeyondThoseOfTheProcesses) {
    const TemporaryHome proc;
    const HostLayout::Sources sources{.proc = proc.url(), .sys = {}};
    EXPECT_EQ(countListeningSocketsBeyond({1}, sources), 0U) << "the system tells nothing";
    const std::string heading = "  sl  local_address rem_address   st tx_queue rx_queue tr\n";
    const auto row = [](const std::string& state, const std::string& number) {
        return "   0: 0100007F:1F90 00000000:0000 " + state +
               " 00000000:00000000 00:00000000 00000000  1000        0 " + number + " 1 0 0\n";
    };
    proc.write("net/tcp", heading + row("0A", "11") + row("0A", "12") + row("01", "13"));
    proc.write("net/tcp6", heading + row("0A", "14") + row("0A", "x") + "0A\n");
    proc.makeLink("7/fd/0", "/dev/null");
    proc.makeLink("7/fd/5", "socket:[12]");
    proc.makeLink("8/fd/1", "socket:[13]");
    EXPECT_EQ(countListeningSocketsBeyond({}, sources), 3U);
    EXPECT_EQ(countListeningSocketsBeyond({7, 8, 7, 9}, sources), 2U);
    proc.makeLink("9/fd/1", "socket:[11]");
    proc.makeLink("9/fd/2", "socket:[14]");
    EXPECT_EQ(countListeningSocketsBeyond({7, 8, 7, 9}, sources), 0U);
}

TEST(Number, isReadWholeOrNotAtAll) {
    EXPECT_EQ(wholeNumber<std::int32_t>("+42"), 42);
    EXPECT_EQ(wholeNumber<std::int32_t>("-2147483648"), std::numeric_limits<std::int32_t>::min());
    for (const char* const text :
         {"", "+", "-", "+-1", "--1", " 1", "1 ", "0x1", "1.0", "2147483648", "\u0661"}) {
        EXPECT_EQ(wholeNumber<std::int32_t>(text), std::nullopt) << text;
    }
}

}
}
