#include <Services/Diagnostics.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace tolvane {
namespace {

using testing::ElementsAre;

constexpr const char* logPath = "state/Logs/Tolvane/scan.log";
constexpr Date launchTime = 1'794'773'666;

class DiagnosticsTest : public ::testing::Test {
  protected:
    void writeReport(const std::string& name, double daysOld) const {
        const FileURL report = home.write("state/Logs/DiagnosticReports/" + name);
        const std::chrono::duration<double> age(launchTime - daysOld * 86'400 - now());
        const auto time =
            std::chrono::file_clock::now() + std::chrono::duration_cast<std::chrono::seconds>(age);
        std::filesystem::last_write_time(report.path(), time);
    }

    std::string logged() {
        log.flush();
        return home.read(logPath);
    }

    TemporaryHome home;
    HostLayout layout =
        HostLayout::freedesktop(home.url(), {{"XDG_STATE_HOME", home.path("state")}});
    std::shared_ptr<const FileManager> files = systemFileManager({});
    AppLog log{layout.locations, files, [] { return 0.0; }};
    Diagnostics diagnostics{layout.locations, log, files, [] { return launchTime; }};
};

TEST_F(DiagnosticsTest, findsOnlyRecentReportsOfThisApplication) {
    EXPECT_TRUE(diagnostics.recentCrashReports(7).empty()) << "no such folder";
    writeReport("Tolvane-2026-11-09-101112.crash", 6);
    writeReport("Tolvane-2026-11-07-101112.crash", 8);
    writeReport(".Tolvane-hidden.crash", 1);
    writeReport("tolvane-small.crash", 1);
    writeReport("Other.crash", 1);
    EXPECT_THAT(
        diagnostics.recentCrashReports(7),
        ElementsAre(home.url("state/Logs/DiagnosticReports/Tolvane-2026-11-09-101112.crash")));
}

TEST_F(DiagnosticsTest, recordsEveryRecentReportOrThatThereIsNone) {
    const std::string none = "1970-01-01T00:00:00Z launch no recent crash reports\n";
    diagnostics.recordLaunch();
    EXPECT_EQ(logged(), none);
    writeReport("Tolvane-\xFF.crash", 1);
    diagnostics.recordLaunch();
    EXPECT_EQ(logged(), none + "1970-01-01T00:00:00Z launch found diagnostic report "
                               "Tolvane-\uFFFD.crash\n");
}

TEST_F(DiagnosticsTest, givesTheLastBytesOfTheLogAsText) {
    EXPECT_EQ(diagnostics.logTail(32'768), "No log yet.");
    home.write(logPath);
    EXPECT_EQ(diagnostics.logTail(32'768), "");
    const std::string content = "begin\xC3\xA9" + std::string(99'000, 'x') + "end\n";
    home.write(logPath, content);
    EXPECT_EQ(diagnostics.logTail(32'768), content.substr(content.size() - 32'768));
    EXPECT_EQ(diagnostics.logTail(1'000'000), content);
    EXPECT_EQ(diagnostics.logTail(0), content) << "0 asks for all";
    EXPECT_EQ(diagnostics.logTail(99'005), "\uFFFD" + content.substr(7))
        << "cut within a character";
    EXPECT_DEATH(diagnostics.logTail(-1), "negative");
    std::filesystem::remove(home.path(logPath));
    home.makeFolder(logPath);
    EXPECT_EQ(diagnostics.logTail(100), "") << "a folder in its place";
}

}
}
