#include "ProgramTest.h"

#include <HostKit/HostLayout.h>
#include <Support/ListeningProcess.h>
#include <Support/RunProgram.h>

#include <csignal>
#include <filesystem>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Ports : public ProgramTest {
  protected:
    /// The program asks on a terminal and is answered.
    static int answered(const std::string& answer, const std::string& words) {
        const std::string line = TOLVANECTL " " + words;
        return runProgram({"script", "-qec", line, "/dev/null"}, {}, answer).status;
    }
};

TEST_F(Ports, areListedAndFiltered) {
    const ListeningProcess several({"127.0.0.1", "::1"}, "odd [n] (2)");
    const ListeningProcess other({"127.0.0.1"});
    const std::string pid = std::to_string(several.pid());
    const std::string first = std::to_string(several.ports()[0]);
    const nlohmann::json list = run({"--json", "ports", "  ODD [N] "}).json();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].at("port"), several.ports()[0]);
    const nlohmann::json expected{
        {"id", pid + "-" + first + "-TCP"},
        {"pid", several.pid()},
        {"processName", "odd [n] (2)"},
        {"executablePath", std::filesystem::read_symlink("/proc/self/exe")},
        {"port", several.ports()[0]},
        {"addresses", {"127.0.0.1:" + first, "[::1]:" + std::to_string(several.ports()[1])}},
        {"protocolName", "TCP"}};
    EXPECT_EQ(list[0], expected);
    EXPECT_THAT(run({"ports", "odd [n]"}).output,
                HasSubstr(first + "  odd [n] (2)  " + pid + "  "));
    EXPECT_EQ(run({"--json", "ports", "no such thing"}).output, "[]\n");
}

TEST_F(Ports, areFreedByEndingTheirProcesses) {
    ListeningProcess several({"127.0.0.1", "::1"});
    ListeningProcess other({"127.0.0.1"}, "", 2);
    // By a port that it is not listed under.
    const CommandResult ended = run({"kill", std::to_string(several.ports()[1]), "--yes"});
    EXPECT_EQ(ended.status, 0) << ended.complaint;
    EXPECT_THAT(ended.output, testing::MatchesRegex("Sent SIGTERM to .* \\(PID [0-9]+\\)\n"));
    EXPECT_THAT(several.awaitEnd(), ElementsAre(SIGTERM));
    EXPECT_EQ(other.running(), other.pids());

    const CommandResult tree =
        run({"--json", "kill", "--pid", std::to_string(other.pid()), "--force", "--tree", "--yes"});
    EXPECT_EQ(tree.json(),
              (nlohmann::json{{"signalled", {other.pid()}}, {"errors", nlohmann::json::array()}}));
    EXPECT_THAT(other.awaitEnd(), ElementsAre(SIGKILL, SIGKILL));

    ListeningProcess shared({"127.0.0.1"}, "", 3);
    const std::string port = std::to_string(shared.ports()[0]);
    EXPECT_EQ(run({"--json", "kill", port, "--force", "--tree", "--yes"}).json().at("signalled"),
              nlohmann::json(shared.pids()))
        << "its children listen there too";
    EXPECT_THAT(shared.awaitEnd(), testing::Each(SIGKILL));
    const CommandResult nothing = run({"--json", "kill", port, "--yes"});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_THAT(nothing.output, IsEmpty());
    EXPECT_EQ(nothing.complaint, "Nothing that you may see listens on port " + port + "\n");
}

TEST_F(Ports, areFreedOnATerminalWhenItsUserAgrees) {
    if (!std::filesystem::exists("/dev/pts/ptmx")) {
        GTEST_SKIP() << "this system gives no terminals";
    }
    ListeningProcess process({"127.0.0.1"});
    const std::string port = std::to_string(process.ports()[0]);
    for (const char* const no : {"\n", "n\n", "sure\n"}) {
        EXPECT_EQ(answered(no, "kill " + port), 130) << no;
    }
    EXPECT_EQ(process.running(), process.pids());
    EXPECT_EQ(answered("y\n", "kill " + port), 0);
    EXPECT_THAT(process.awaitEnd(), ElementsAre(SIGTERM));
}

}
}
