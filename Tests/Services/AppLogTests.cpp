#include <Services/AppLog.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>
#include <vector>

namespace tolvane {
namespace {

constexpr const char* logPath = "state/Logs/Tolvane/scan.log";

class AppLogTest : public ::testing::Test {
  protected:
    AppLog makeLog() const {
        return AppLog(layout.locations, files, [] { return 1'794'773'666.9; });
    }

    TemporaryHome home;
    const HostLayout layout =
        HostLayout::freedesktop(home.url(), {{"XDG_STATE_HOME", home.path("state")}});
    const std::shared_ptr<const FileManager> files = systemFileManager(layout);
};

TEST_F(AppLogTest, makesFolderAndFileWithTheFirstLine) {
    AppLog log = makeLog();
    EXPECT_FALSE(home.has("state")) << "nothing is touched before";
    log.write("app launch version=1");
    log.flush();
    EXPECT_EQ(home.read(logPath), "2026-11-15T20:14:26Z app launch version=1\n");
}

TEST_F(AppLogTest, emptiesTheFileOnlyBeyondTheLimit) {
    AppLog log = makeLog();
    const std::string full(AppLog::maximumSize, 'x');
    const std::string line = "2026-11-15T20:14:26Z m\n";
    home.write(logPath, full);
    log.write("m");
    log.flush();
    EXPECT_EQ(home.read(logPath), full + line);
    log.write("m");
    log.flush();
    EXPECT_EQ(home.read(logPath), line) << "now it is beyond";
}

TEST_F(AppLogTest, writesEveryLineWholeAndInOrderBeforeItEnds) {
    constexpr int lines = 200;
    {
        AppLog log = makeLog();
        std::thread other([&] {
            for (int i = 0; i < lines; ++i) {
                log.write("b");
            }
        });
        for (int i = 0; i < lines; ++i) {
            log.write("a" + std::to_string(i));
        }
        other.join();
    }
    const std::string written = home.read(logPath);
    std::size_t position = 0;
    for (int i = 0; i < lines; ++i) {
        position = written.find("Z a" + std::to_string(i) + "\n", position);
        ASSERT_NE(position, std::string::npos) << i;
    }
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 2 * lines);
}

TEST_F(AppLogTest, losesOnlyTheLineThatCannotBeWritten) {
    AppLog log = makeLog();
    home.write("state", "a file in the folder's place");
    log.write("lost");
    log.flush();
    std::remove(home.path("state").c_str());
    home.makeFolder("state/Logs/Tolvane");
    ASSERT_EQ(::mkfifo(home.path(logPath).c_str(), 0600), 0);
    log.write("a pipe must not hold the thread up");
    log.flush();
    std::remove(home.path(logPath).c_str());
    log.write("not UTF-8: \xFF");
    log.write("kept");
    log.flush();
    EXPECT_EQ(home.read(logPath), "2026-11-15T20:14:26Z kept\n");
}

}
}
