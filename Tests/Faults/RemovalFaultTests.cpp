#include "InterruptedTrash.h"

#include <HostKit/TrashInfo.h>
#include <Support/OddNames.h>
#include <Support/OrdinaryUser.h>
#include <Support/RemovalHome.h>
#include <Support/RunProgram.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace {

bool losesAnswers = false;

}

/// In place of the C library's: the system call, whose answer can be lost as on a network.
extern "C" int renameat2(int from, const char* name, int to, const char* newName,
                         unsigned flags) noexcept {
    const long result = ::syscall(SYS_renameat2, from, name, to, newName, flags);
    errno = losesAnswers ? EIO : errno;
    return losesAnswers ? -1 : static_cast<int>(result);
}

namespace tolvane {
namespace {

namespace fs = std::filesystem;

class RemovalFault : public testing::Test {
  protected:
    using Receipts = Result<std::vector<RemovalReceipt>, RemovalError>;

    Receipts remove(const std::vector<std::string>& relative) const {
        std::vector<FileURL> items;
        for (const std::string& path : relative) {
            items.push_back(home.url(path));
        }
        // A Trash of its own: it belongs to the user that this runs as.
        return home.cleanerWith(systemTrash(home.layout)).moveToTrash(items, home.url());
    }
    static std::string description(const Receipts& receipts) {
        return receipts ? "done" : receipts.error().description();
    }
    std::string couldNotMove(const std::string& relative, const std::string& reason) const {
        return "Could not move " + home.path(relative) + " to Trash: " + reason;
    }
    std::string couldNotRestore(const std::string& relative) const {
        return "Could not restore " + home.path(relative) + ": An item already exists there";
    }

    RemovalHome home;
};

TEST_F(RemovalFault, trashThatIsNotWritableEndsTheAttempt) {
    home.write("file", "precious");
    for (const char* part : {"files", "info"}) {
        home.makeFolder(".local/share/Trash/" + std::string(part));
    }
    giveToOrdinaryUser(home.url().path());
    const TreeState before = treeState(home.url().path());
    for (const char* part : {"files", "info"}) {
        const fs::path folder = home.path(".local/share/Trash/" + std::string(part));
        fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
        EXPECT_EQ(asOrdinaryUser([&] { return description(remove({"file"})); }),
                  couldNotMove("file", "Permission denied"));
        fs::permissions(folder, fs::perms::owner_all);
        EXPECT_EQ(treeState(home.url().path()), before) << part;
    }
}

TEST_F(RemovalFault, oddNamesComeBackByteForByte) {
    std::vector<std::string> items;
    for (const std::string& name : oddNames()) {
        home.write("odd/" + name, name);
        items.push_back("odd/" + name);
    }
    const TreeState before = treeState(home.path("odd"));
    const Receipts receipts = remove(items);
    ASSERT_TRUE(receipts) << description(receipts);
    EXPECT_TRUE(treeState(home.path("odd")).empty());
    EXPECT_TRUE(home.cleaner().restore(*receipts).empty());
    EXPECT_EQ(treeState(home.path("odd")), before);
}

TEST_F(RemovalFault, danglingLinkLeavesTheBatchUntouched) {
    home.write("a");
    home.makeLink("link", "gone");
    EXPECT_EQ(description(remove({"a", "link"})), "Item no longer exists: " + home.path("link"));
    EXPECT_TRUE(home.has("a"));
    EXPECT_TRUE(home.has("link"));
}

TEST_F(RemovalFault, linkMovesWithoutItsTarget) {
    home.write("folder/file", "content");
    home.makeLink("links/relative", "../folder");
    const TreeState before = treeState(home.path("links"));
    const Receipts receipts = remove({"links/relative"});
    ASSERT_TRUE(receipts) << description(receipts);
    EXPECT_EQ(home.read("folder/file"), "content");
    EXPECT_FALSE(home.has("links/relative"));
    EXPECT_TRUE(home.cleaner().restore(*receipts).empty());
    EXPECT_EQ(treeState(home.path("links")), before);
}

TEST_F(RemovalFault, moveWhoseAnswerIsLostIsDone) {
    home.write("item", "precious");
    losesAnswers = true;
    const Receipts receipts = remove({"item"});
    const bool isMoved = !home.has("item");
    const bool isRecorded = home.has(".local/share/Trash/info/item.trashinfo");
    const auto errors = home.cleaner().restore(receipts.value_or(std::vector<RemovalReceipt>{}));
    losesAnswers = false;
    EXPECT_EQ(description(receipts), "done");
    EXPECT_TRUE(isMoved && isRecorded && errors.empty());
    EXPECT_EQ(home.read("item"), "precious");
    EXPECT_FALSE(home.has(".local/share/Trash/info/item.trashinfo"));
}

TEST_F(RemovalFault, occupiedPlaceKeepsBoth) {
    const auto occupy = [&](const std::string& kind) {
        if (kind == "file") {
            home.write(kind, "occupant");
        } else if (kind == "folder") {
            home.makeFolder(kind);
        } else if (kind == "same") {
            fs::create_hard_link(home.path(".local/share/Trash/files/same"), home.path(kind));
        } else {
            home.makeLink(kind, "nowhere");
        }
    };
    for (const std::string kind : {"file", "folder", "same", "link"}) {
        home.write(kind, "item");
        const Receipts receipts = remove({kind});
        ASSERT_TRUE(receipts) << description(receipts);
        // Before the test of the Cleaner, and between its test and the move.
        for (const bool isLate : {true, false}) {
            TreeState occupied;
            const auto takePlace = [&] {
                occupy(kind);
                occupied = treeState(home.url().path());
            };
            if (!isLate) {
                takePlace();
            }
            const auto trash =
                isLate ? std::make_shared<InterruptedTrash>(home.trash, takePlace) : home.trash;
            const std::vector<RemovalError> errors = home.cleanerWith(trash).restore(*receipts);
            ASSERT_EQ(errors.size(), 1U);
            EXPECT_EQ(errors.front().description(), couldNotRestore(kind));
            EXPECT_EQ(treeState(home.url().path()), occupied);
            fs::remove(home.path(kind));
        }
        EXPECT_TRUE(home.cleaner().restore(*receipts).empty());
        EXPECT_EQ(home.read(kind), "item");
    }
}

/// What a batch of five must leave behind when its third item cannot be moved.
class ImmovableItem : public RemovalFault {
  protected:
    const std::vector<std::string> names = {"i1", "i2", "i3", "i4", "i5"};

    void expectTwoMoved() const {
        const TreeState infos = treeState(home.path(".local/share/Trash/info"));
        for (const std::string& name : names) {
            const bool isMoved = name == "i1" || name == "i2";
            EXPECT_EQ(home.has("f/" + name), !isMoved) << name;
            EXPECT_EQ(infos.contains("/" + trashInfoName(name)), isMoved) << name;
        }
        if (!hasProgram("trash-restore")) {
            return;
        }
        for (const char* name : {"i1", "i2"}) {
            runProgram({"trash-restore", home.path("f/") + name},
                       {{"HOME", home.url().path()}, {"XDG_DATA_HOME", home.path(".local/share")}},
                       "0\n");
            EXPECT_EQ(home.read(std::string("f/") + name), name);
        }
    }
    std::vector<std::string> paths() const {
        std::vector<std::string> list;
        for (const std::string& name : names) {
            list.push_back("f/" + name);
        }
        return list;
    }
    void SetUp() override {
        for (const std::string& name : names) {
            home.write("f/" + name, name);
        }
    }
};

TEST_F(ImmovableItem, ofAnotherOwnerEndsTheBatchThere) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can make files of another owner";
    }
    giveToOrdinaryUser(home.url().path());
    ASSERT_EQ(::chown(home.path("f").c_str(), 0, 0), 0);
    ASSERT_EQ(::chown(home.path("f/i3").c_str(), 0, 0), 0);
    fs::permissions(home.path("f"), fs::perms::all | fs::perms::sticky_bit);
    EXPECT_EQ(asOrdinaryUser([&] { return description(remove(paths())); }),
              couldNotMove("f/i3", "Operation not permitted"));
    expectTwoMoved();
}

TEST_F(ImmovableItem, ofTheImmutableKindEndsTheBatchThere) {
    if (::geteuid() != 0 || runProgram({"chattr", "+i", home.path("f/i3")}).status != 0) {
        GTEST_SKIP() << "needs root and a file system with immutable files";
    }
    EXPECT_EQ(description(remove(paths())), couldNotMove("f/i3", "Operation not permitted"));
    EXPECT_EQ(runProgram({"chattr", "-i", home.path("f/i3")}).status, 0);
    expectTwoMoved();
}

TEST_F(ImmovableItem, thatWentBetweenCheckAndMoveEndsTheBatchThere) {
    int moves = 0;
    const auto trash = std::make_shared<InterruptedTrash>(home.trash, [&] {
        if (++moves == 3) {
            fs::rename(home.path("f/i3"), home.path("f/was3"));
        }
    });
    std::vector<FileURL> items;
    for (const std::string& path : paths()) {
        items.push_back(home.url(path));
    }
    EXPECT_EQ(description(home.cleanerWith(trash).moveToTrash(items, home.url())),
              couldNotMove("f/i3", "No such file or directory"));
    fs::rename(home.path("f/was3"), home.path("f/i3"));
    expectTwoMoved();
}

TEST_F(RemovalFault, parentSwappedForALinkLeadsNowhere) {
    home.write("outside/item", "precious");
    home.write("chosen/a/item", "chosen");
    const auto swap = [&] {
        fs::rename(home.path("chosen/a"), home.path("chosen/b"));
        home.makeLink("chosen/a", "../outside");
    };
    const auto trash = std::make_shared<InterruptedTrash>(home.trash, swap);
    EXPECT_EQ(description(home.cleanerWith(trash).moveToTrash({home.url("chosen/a/item")},
                                                              home.url("chosen"))),
              couldNotMove("chosen/a/item", "Not a directory"));
    EXPECT_EQ(home.read("outside/item"), "precious");
    EXPECT_EQ(home.read("chosen/b/item"), "chosen");
}

}
}
