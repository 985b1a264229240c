#include <Support/OtherPrograms.h>
#include <Support/RemovalHome.h>
#include <Support/RunProgram.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

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

    ProgramRun run(const Arguments& arguments) const {
        return runProgram(arguments, {{"HOME", home.url().path()},
                                      {"XDG_DATA_HOME", home.path(".local/share")},
                                      {"XDG_STATE_HOME", home.path(".local/state")}});
    }
    ProgramRun tolvanectl(Arguments arguments, const Arguments& tracer = {}) const {
        arguments.insert(arguments.begin(), TOLVANECTL);
        arguments.insert(arguments.begin(), tracer.begin(), tracer.end());
        return run(arguments);
    }
    Arguments trashCommand() const {
        Arguments command = {"--json", "trash", "--within", work};
        for (const char* item : {"file", "folder", "link", "deep/er/not \xff UTF-8\n"}) {
            const std::string path = work + "/" + item;
            if (fs::symlink_status(path).type() != fs::file_type::not_found) {
                command.push_back(path);
            }
        }
        return command;
    }

    /// How often each system call on files is made, by the busiest thread.
    std::map<std::string, int> countCalls(const Arguments& command) const {
        const std::string log = home.path("calls");
        const Arguments tracer = {"strace", "-f", "-o", log, "-e", "trace=%file,%desc"};
        EXPECT_EQ(tolvanectl(command, tracer).status, 0);
        std::map<std::pair<std::string, std::string>, int> counts;
        std::ifstream lines(log);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string thread;
            std::string call;
            words >> thread >> call;
            const std::size_t parenthesis = call.find('(');
            if (parenthesis != std::string::npos) {
                ++counts[{thread, call.substr(0, parenthesis)}];
            }
        }
        std::map<std::string, int> most;
        for (const auto& [key, count] : counts) {
            most[key.second] = std::max(most[key.second], count);
        }
        return most;
    }

    /// Everything as it would be with what is in the Trash at its place again; an item that is in
    /// both, or in neither, or without its info file shows as a difference.
    TreeState reassembled() const {
        TreeState state = treeState(work);
        const fs::path info = home.layout.locations.homeTrash.appending("info").path();
        if (!fs::exists(info)) {
            return state;
        }
        for (const RemovalReceipt& receipt : receiptsFromTrash(home.layout)) {
            const std::string original = receipt.original.path().substr(work.size());
            EXPECT_FALSE(state.contains(original)) << original << " is there twice";
            const fs::path moved = home.path("moved");
            fs::create_directory(moved);
            fs::rename(receipt.trashed.path(), moved / "item");
            for (const auto& [path, description] : treeState(moved)) {
                state[original + path.substr(std::string("/item").size())] = description;
            }
            fs::rename(moved / "item", receipt.trashed.path());
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
    TreeState before;
};

TEST_F(KillSweep, trashLosesNothing) {
    sweep([&] { return trashCommand(); },
          [&] {
              if (const Arguments again = trashCommand(); again.size() > 4) {
                  EXPECT_EQ(tolvanectl(again).status, 0);
              }
              EXPECT_EQ(treeState(work), (TreeState{{"/deep", "folder"}, {"/deep/er", "folder"}}));
              EXPECT_TRUE(home.cleaner().restore(receiptsFromTrash(home.layout)).empty());
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
