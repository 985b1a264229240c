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

using testing::ElementsAre;

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
    for (const std::int32_t pid : {0, -1, -::getpgrp()}) {
        EXPECT_EQ(Processes::signal(pid, SIGCONT).error().code, EINVAL) << pid;
    }
    EXPECT_TRUE(Processes::signal(::getpid(), SIGCONT));
}

TEST(ListeningSockets, areReadFromATable) {
    const std::string heading = "  sl  local_address rem_address   st tx_queue rx_queue tr\n";
    const auto row = [](const std::string& local, const std::string& state) {
        return "   0: " + local + " 00000000:0000 " + state + " 00000000:00000000 00:00000000\n";
    };
    EXPECT_THAT(ListeningSockets::parse(heading + row("0100007F:1F90", "0A") +
                                        row("00000000:0016", "0A") + row("0100007F:0050", "01") +
                                        row("0100007F:0051", "0A")),
                ElementsAre("127.0.0.1:8080", "*:22"));
    EXPECT_THAT(ListeningSockets::parse(heading +
                                        row("00000000000000000000000001000000:0277", "0A") +
                                        row("00000000000000000000000000000000:FFFF", "0A") +
                                        row("0000000000000000FFFF00000100007F:0002", "0A") +
                                        row("000080FE00000000FF005450B6AD1DFE:0001", "0A")),
                ElementsAre("[::1]:631", "*:65535", "127.0.0.1:2", "[fe80::5054:ff:fe1d:adb6]:1"));
    EXPECT_THAT(ListeningSockets::parse(heading + row("0100007F:10000", "0A") + row(":1", "0A") +
                                        row("0100007G:1", "0A") + row("01:1", "0A")),
                testing::IsEmpty());
    for (const char* const text : {"", "heading", "heading\n", "heading\n\n\n", "h\n 0: x y 0A"}) {
        EXPECT_THAT(ListeningSockets::parse(text), testing::IsEmpty()) << text;
    }
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
