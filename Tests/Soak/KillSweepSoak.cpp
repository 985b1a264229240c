#include <Support/RemovalHome.h>
#include <Support/RunProgram.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>

namespace tolvane {
namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

constexpr int killedStatus = 128 + SIGKILL;

/// tolvanectl at work on a temporary home, killed at one system call after another.
class KillSweep : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasProgram("strace")) {
            GTEST_SKIP() << "strace is not installed";
        }
        home.write("work/file", "content");
        home.write("work/folder/inside", "more");
        home.makeLink("work/link", "deep");
        home.write("work/deep/er/not \xff UTF-8\n", "odd");
        before = treeState(work);
    }

    ProgramRun tolvanectl(const Arguments& arguments, Arguments command = {}) const {
        command.emplace_back(TOLVANECTL);
        command.insert(command.end(), arguments.begin(), arguments.end());
        return runProgram(command, {{"HOME", home.path("")},
                                    {"XDG_DATA_HOME", home.path(".local/share")},
                                    {"XDG_STATE_HOME", home.path(".local/state")}});
    }
    Arguments trashCommand() const {
        Arguments command = {"--json", "trash", "--within", work};
        for (const std::string item : {"file", "folder", "link", "deep/er/not \xff UTF-8\n"}) {
            if (home.has("work/" + item)) {
                command.push_back(work + "/" + item);
            }
        }
        return command;
    }

    /// How often each system call on files is made, by the busiest thread.
    std::map<std::string, int> countCalls(const Arguments& command) const {
        const std::string log = home.path("calls");
        const Arguments tracer = {"strace", "-f", "-o", log, "-e", "trace=%file,%desc"};
        EXPECT_EQ(tolvanectl(command, tracer).status, 0);
        std::map<std::string, int> counts;
        std::map<std::string, int> most;
        std::ifstream lines(log);
        const std::regex start("^[0-9]+ +(\\w+)\\(");
        std::smatch match;
        for (std::string line; std::getline(lines, line);) {
            if (std::regex_search(line, match, start)) {
                int& ofAll = most[match[1]];
                ofAll = std::max(ofAll, ++counts[match[0]]);
            }
        }
        return most;
    }

    /// Everything as it would be with what is in the Trash at its place again; an item that is in
    /// both, or in neither, or without its info file shows as a difference.
    TreeState reassembled() const {
        TreeState state = treeState(work);
        const std::vector<RemovalReceipt> receipts = home.receiptsFromTrash();
        const TreeState trash = receipts.empty() ? TreeState{} : treeState(files);
        for (const RemovalReceipt& receipt : receipts) {
            const std::string original = receipt.original.path().substr(work.size());
            EXPECT_FALSE(state.contains(original)) << original << " is there twice";
            const std::string name = receipt.trashed.path().substr(files.size());
            for (const auto& [path, description] : trash) {
                if (liesWithin(path, name)) {
                    state[original + path.substr(name.size())] = description;
                }
            }
        }
        for (const auto& [path, description] : TreeState(state)) {
            for (fs::path above = fs::path(path).parent_path(); above != "/";
                 above = above.parent_path()) {
                state.try_emplace(above, "folder");
            }
        }
        return state;
    }

    /// Runs `command` once for every call, killed there, and `checkAndMend` after each.
    void sweep(const std::function<Arguments()>& command,
               const std::function<void()>& checkAndMend) {
        int kills = 0;
        const std::map<std::string, int> calls = countCalls(command());
        checkAndMend();
        for (const auto& [call, count] : calls) {
            for (int number = 1; number <= count; ++number) {
                const std::string inject =
                    "inject=" + call + ":signal=KILL:when=" + std::to_string(number);
                const ProgramRun killed =
                    tolvanectl(command(), {"strace", "-f", "-o", "/dev/null", "-e", "trace=" + call,
                                           "-e", inject});
                kills += killed.status == killedStatus ? 1 : 0;
                EXPECT_EQ(reassembled(), before);
                checkAndMend();
                ASSERT_FALSE(HasFailure()) << "killed at " << call << " number " << number;
            }
        }
        EXPECT_GT(kills, 100);
        std::printf("killed %d times at %zu different calls\n", kills, calls.size());
    }

    RemovalHome home;
    const std::string work = home.path("work");
    const std::string files = home.path(".local/share/Trash/files");
    TreeState before;
};

TEST_F(KillSweep, trashLosesNothing) {
    sweep([&] { return trashCommand(); },
          [&] {
              if (const Arguments again = trashCommand(); again.size() > 4) {
                  EXPECT_EQ(tolvanectl(again).status, 0);
              }
              EXPECT_EQ(treeState(work), (TreeState{{"/deep", "folder"}, {"/deep/er", "folder"}}));
              EXPECT_TRUE(home.cleaner().restore(home.receiptsFromTrash()).empty());
              EXPECT_EQ(treeState(work), before);
              fs::remove_all(home.layout.locations.homeTrash.path());
          });
}

TEST_F(KillSweep, restoreLosesNothing) {
    const std::string receipts = home.path("receipts");
    sweep(
        [&] {
            const ProgramRun trashed = tolvanectl(trashCommand());
            EXPECT_EQ(trashed.status, 0);
            std::ofstream(receipts, std::ios::binary) << trashed.output;
            fs::remove_all(work + "/deep");
            return Arguments{"restore", receipts};
        },
        [&] {
            tolvanectl({"restore", receipts});
            EXPECT_EQ(treeState(work), before);
            fs::remove_all(home.layout.locations.homeTrash.path());
        });
}

}
}
