#include <Services/AppLog.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <thread>

namespace tolvane {
namespace {

constexpr const char* logPath = "state/Logs/Tolvane/scan.log";
const std::string stamp = "2026-11-15T20:14:26Z ";

class AppLogTest : public ::testing::Test {
  protected:
    void write(const std::string& message) {
        log->write(message);
        log->flush();
    }

    TemporaryHome home;
    HostLayout layout =
        HostLayout::freedesktop(home.url(), {{"XDG_STATE_HOME", home.path("state")}});
    std::optional<AppLog> log{std::in_place, layout.locations, systemFileManager(layout),
                              [] { return 1'794'773'666.9; }};
};

TEST_F(AppLogTest, emptiesTheFileOnlyBeyondTheLimit) {
    const std::string full(AppLog::maximumSize, 'x');
    EXPECT_FALSE(home.has("state")) << "nothing is touched before the first line";
    write("m");
    EXPECT_EQ(home.read(logPath), stamp + "m\n");
    home.write(logPath, full);
    write("m");
    EXPECT_EQ(home.read(logPath), full + stamp + "m\n");
    write("m");
    EXPECT_EQ(home.read(logPath), stamp + "m\n") << "now it is beyond";
}

TEST_F(AppLogTest, writesEveryLineWholeAndInOrderBeforeItEnds) {
    constexpr int lines = 2000;
    std::thread other([&] {
        for (int i = 0; i < lines; ++i) {
            log->write("b");
        }
    });
    for (int i = 0; i < lines; ++i) {
        log->write("a" + std::to_string(i));
    }
    other.join();
    log.reset();
    const std::string written = home.read(logPath);
    std::size_t position = 0;
    for (int i = 0; i < lines; ++i) {
        position = written.find("Z a" + std::to_string(i) + "\n", position);
        ASSERT_NE(position, std::string::npos) << i;
    }
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 2 * lines);
}

TEST_F(AppLogTest, losesOnlyTheLineThatCannotBeWritten) {
    home.write("state", "a file in the folder's place");
    write("lost");
    std::filesystem::remove(home.path("state"));
    home.makeFolder("state/Logs/Tolvane");
    ASSERT_EQ(::mkfifo(home.path(logPath).c_str(), 0600), 0);
    write("a pipe must not hold the thread up");
    std::filesystem::remove(home.path(logPath));
    write("not UTF-8: \xFF");
    write("kept");
    EXPECT_EQ(home.read(logPath), stamp + "kept\n");
}

}
}
