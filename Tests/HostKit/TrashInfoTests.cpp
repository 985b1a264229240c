#include <HostKit/TrashInfo.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace tolvane {
namespace {

using namespace std::string_literals;

TEST(TrashInfo, writesWhatOtherProgramsRead) {
    const TrashInfo info{"/home/u/a b/\xc3\xbc\xff~-_.%+\n", "2026-11-15T20:14:26"};
    EXPECT_EQ(info.text(), "[Trash Info]\n"
                           "Path=/home/u/a%20b/%C3%BC%FF~-_.%25%2B%0A\n"
                           "DeletionDate=2026-11-15T20:14:26\n");
}

TEST(TrashInfo, readsOnlyWhatFollowsTheFormat) {
    EXPECT_EQ(TrashInfo::parse("[Trash Info]\nX=1\nPath=a%2fb\nPath=c\nDeletionDate=d"),
              (TrashInfo{"a/b", "d"}));
    EXPECT_EQ(TrashInfo::parse("[Trash Info]\nPath=a\n[Other]\nDeletionDate=d\n"),
              (TrashInfo{"a", ""}));
    for (const std::string& text : {""s, "[Trash Info]"s, "Path=a\n"s, "\n[Trash Info]\nPath=a\n"s,
                                    "[Trash Info]\nPath=\n"s, "[Trash Info]\n[Other]\nPath=a\n"s,
                                    "[Trash Info]\nPath=%2\n"s, "[Trash Info]\nPath=%zz\n"s,
                                    "[Trash Info]\nPath=a%00b\n"s, "[Trash Info]\nPath=a\0b\n"s}) {
        EXPECT_EQ(TrashInfo::parse(text), std::nullopt) << text;
    }
}

TEST(TrashInfo, datesByTheLocalClock) {
    ::setenv("TZ", "UTC-5:30", 1);
    ::tzset();
    EXPECT_EQ(deletionDate(0.9), "1970-01-01T05:30:00");
    ::unsetenv("TZ");
    ::tzset();
}

TEST(TrashName, countsBeforeTheExtensionAndLeavesRoomForThatOfTheInfoFile) {
    const std::string stem(250, 's');
    EXPECT_EQ(trashName("a.tar.gz", 1), "a.tar.gz");
    EXPECT_EQ(trashName("a.tar.gz", 2), "a.2.tar.gz");
    EXPECT_EQ(trashName("a", 13), "a.13");
    EXPECT_EQ(trashName(".bashrc", 2), ".bashrc.2");
    EXPECT_EQ(trashName(".a.b", 2), ".a.2.b");
    EXPECT_EQ(trashName(stem + ".txt", 2), stem.substr(0, 239) + ".2.txt");
    EXPECT_EQ(trashName("s." + stem, 1), "s." + stem.substr(0, 243));
    EXPECT_EQ(trashName(std::string(255, '\x80'), 1).size(), 245U);
}

}
}
