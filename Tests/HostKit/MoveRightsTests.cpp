#include <HostKit/MoveRights.h>
#include <Support/OrdinaryUser.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvane {
namespace {

/// Compares what is told with what a rename does, run by another user than the owner of "others".
TEST(MoveRights, tellWhatARenameWouldBeAllowed) {
    const TemporaryHome home;
    const std::vector<std::string> names = {"open/app",  "open/link", "open/readOnly", "held/app",
                                            "missing/x", "sticky/f",  "sticky/others", "open/none"};
    for (const char* const folder : {"open/app", "open/readOnly", "held/app", "sticky", "target"}) {
        home.makeFolder(folder);
    }
    home.makeLink("open/link", "nowhere");
    home.write("sticky/f");
    giveToOrdinaryUser(home.url().path());
    ::chmod(home.path("held").c_str(), 0555);
    ::chmod(home.path("open/readOnly").c_str(), 0555);
    home.write("sticky/others");
    EXPECT_TRUE(::chmod(home.path("sticky").c_str(), 01777) == 0 &&
                ::lchown(home.path("sticky").c_str(), ::geteuid(), ::getegid()) == 0);
    const std::string wrong = asOrdinaryUser([&] {
        std::string differences;
        for (const std::string& name : names) {
            const bool isTold = mayBeMoved(home.url(name));
            const std::string target = home.path("target/moved");
            const bool isMoved = ::rename(home.path(name).c_str(), target.c_str()) == 0;
            ::rename(target.c_str(), home.path(name).c_str());
            differences += isTold == isMoved ? "" : name + " ";
        }
        return differences;
    });
    EXPECT_EQ(wrong, "");
    ::chmod(home.path("held").c_str(), 0755);
}

}
}
