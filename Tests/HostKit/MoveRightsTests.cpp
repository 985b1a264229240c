#include <HostKit/MoveRights.h>
#include <Support/OrdinaryUser.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tolvane {
namespace {

/// Compares what is told with what a rename does.
TEST(MoveRights, tellWhatARenameWouldBeAllowed) {
    const TemporaryHome home;
    for (const char* const name : {"open/app/f", "held/app/f", "open/readOnly/f"}) {
        home.write(name);
    }
    home.makeFolder("target");
    home.makeLink("open/link", "nowhere");
    giveToOrdinaryUser(home.url().path());
    ::chmod(home.path("held").c_str(), 0555);
    ::chmod(home.path("open/readOnly").c_str(), 0555);
    const std::string wrong = asOrdinaryUser([&] {
        std::string differences;
        for (const char* const name : {"open/app", "open/link", "open/readOnly", "held/app",
                                       "open/app/f", "held/app/f", "missing", "missing/x"}) {
            const bool isTold = mayBeMoved(home.url(name));
            const std::string target = home.path("target/moved");
            const bool isMoved = ::rename(home.path(name).c_str(), target.c_str()) == 0;
            if (isMoved) {
                ::rename(target.c_str(), home.path(name).c_str());
            }
            differences += isTold == isMoved ? "" : std::string(name) + " ";
        }
        return differences;
    });
    EXPECT_EQ(wrong, "");
    ::chmod(home.path("held").c_str(), 0755);
}

TEST(MoveRights, knowFoldersThatGuardOtherOwnersItems) {
    const TemporaryHome home;
    home.write("sticky/others");
    ::chmod(home.url().path().c_str(), 0755);
    ::chmod(home.path("sticky").c_str(), 01777);
    home.makeFolder("sticky/own");
    giveToOrdinaryUser(home.path("sticky/own"));
    const std::string told = asOrdinaryUser([&] {
        return std::string(mayBeMoved(home.url("sticky/own")) ? "own " : "") +
               (mayBeMoved(home.url("sticky/others")) ? "others" : "");
    });
    EXPECT_EQ(told, ::geteuid() == 0 ? "own " : "own others");
}

}
}
