#include <HostKit/TrashInfo.h>
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
#include <map>

namespace {

bool losesAnswers = false;

}

/// In place of the C library's: the system call, whose answer can be lost as on a network.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
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
        // A Trash of its own: it belongs to the user that this runs as.
        return home.cleanerWith(systemTrash(home.layout))
            .moveToTrash(home.urls(relative), home.url());
    }
    static std::string description(const Receipts& receipts) {
        return receipts ? "done" : receipts.error().description();
    }
    std::string couldNotMove(const std::string& relative, const std::string& reason) const {
        return "Could not move " + home.path(relative) + " to Trash: " + reason;
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
    const std::map<std::string, std::function<void(const std::string&)>> occupants{
        {"file", [&](const std::string& place) { home.write(place, "occupant"); }},
        {"folder", [&](const std::string& place) { home.makeFolder(place); }},
        {"dangling", [&](const std::string& place) { home.makeLink(place, "nowhere"); }},
        {"same", [&](const std::string& place) {
             fs::create_hard_link(home.path(".local/share/Trash/files/same"), home.path(place));
         }}};
    for (const auto& [item, occupy] : occupants) {
        home.write(item, "item");
        const Receipts receipts = remove({item});
        ASSERT_TRUE(receipts) << description(receipts);
        TreeState occupied;
        const auto takePlace = [&, &name = item, &take = occupy] {
            take(name);
            occupied = treeState(home.path(""));
        };
        const auto expectBoth = [&, &name = item](const Cleaner& cleaner) {
            const std::vector<RemovalError> errors = cleaner.restore(*receipts);
            ASSERT_EQ(errors.size(), 1U);
            EXPECT_EQ(errors.front(),
                      RemovalError::restoreFailed(home.path(name), "An item already exists there"));
            EXPECT_EQ(treeState(home.path("")), occupied);
            fs::remove(home.path(name));
        };
        // Between the test of the Cleaner and the move, and before either.
        expectBoth(home.cleanerWith(home.trashAfter(takePlace)));
        takePlace();
        expectBoth(home.cleaner());
        EXPECT_TRUE(home.cleaner().restore(*receipts).empty());
        EXPECT_EQ(home.read(item), "item");
    }
}

/// What a batch of five must leave behind when its third item cannot be moved.
class ImmovableItem : public RemovalFault {
  protected:
    void SetUp() override {
        for (const std::string& item : items) {
            home.write(item, item);
        }
    }
    void expectTwoMoved() const {
        for (const std::string& item : items) {
            const bool isMoved = item < "f/3";
            EXPECT_EQ(home.has(item), !isMoved) << item;
            EXPECT_EQ(home.has(".local/share/Trash/info/" + trashInfoName(item.substr(2))),
                      isMoved);
            if (isMoved && hasProgram("trash-restore")) {
                runProgram({"trash-restore", home.path(item)},
                           {{"HOME", home.path("")}, {"XDG_DATA_HOME", home.path(".local/share")}},
                           "0\n");
                EXPECT_EQ(home.read(item), item);
            }
        }
    }

    const std::vector<std::string> items{"f/1", "f/2", "f/3", "f/4", "f/5"};
};

TEST_F(ImmovableItem, ofAnotherOwnerEndsTheBatchThere) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can make files of another owner";
    }
    giveToOrdinaryUser(home.url().path());
    ASSERT_EQ(::chown(home.path("f").c_str(), 0, 0), 0);
    ASSERT_EQ(::chown(home.path("f/3").c_str(), 0, 0), 0);
    fs::permissions(home.path("f"), fs::perms::all | fs::perms::sticky_bit);
    EXPECT_EQ(asOrdinaryUser([&] { return description(remove(items)); }),
              couldNotMove("f/3", "Operation not permitted"));
    expectTwoMoved();
}

TEST_F(ImmovableItem, ofTheImmutableKindEndsTheBatchThere) {
    if (::geteuid() != 0 || runProgram({"chattr", "+i", home.path("f/3")}).status != 0) {
        GTEST_SKIP() << "needs root and a file system with immutable files";
    }
    EXPECT_EQ(description(remove(items)), couldNotMove("f/3", "Operation not permitted"));
    EXPECT_EQ(runProgram({"chattr", "-i", home.path("f/3")}).status, 0);
    expectTwoMoved();
}

TEST_F(ImmovableItem, thatWentBetweenCheckAndMoveEndsTheBatchThere) {
    int moves = 0;
    const auto trash = home.trashAfter([&] {
        if (++moves == 3) {
            fs::rename(home.path("f/3"), home.path("f/was3"));
        }
    });
    EXPECT_EQ(description(home.cleanerWith(trash).moveToTrash(home.urls(items), home.url())),
              couldNotMove("f/3", "No such file or directory"));
    fs::rename(home.path("f/was3"), home.path("f/3"));
    expectTwoMoved();
}

TEST_F(RemovalFault, parentSwappedForALinkLeadsNowhere) {
    home.write("outside/item", "precious");
    home.write("chosen/a/item", "chosen");
    const auto swap = [&] {
        fs::rename(home.path("chosen/a"), home.path("chosen/b"));
        home.makeLink("chosen/a", "../outside");
    };
    const Cleaner cleaner = home.cleanerWith(home.trashAfter(swap));
    EXPECT_EQ(description(cleaner.moveToTrash({home.url("chosen/a/item")}, home.url("chosen"))),
              couldNotMove("chosen/a/item", "Not a directory"));
    EXPECT_EQ(home.read("outside/item"), "precious");
    EXPECT_EQ(home.read("chosen/b/item"), "chosen");
}

}
}
