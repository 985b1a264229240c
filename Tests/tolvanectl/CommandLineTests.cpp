#include "ProgramTest.h"

#include <Support/OrdinaryUser.h>

#include <filesystem>

namespace tolvane {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class CommandLine : public ProgramTest {};

TEST_F(CommandLine, refusesWhatItDoesNotKnow) {
    home.write("f");
    using Words = std::vector<std::string>;
    const std::vector<std::pair<std::string, Words>> refused{
        {"", {"", "dance"}},
        {"scan",
         {"", ". .", ". --bogus", ". --depth -1", ". --top many", ". --set maxDepth",
          ". --set maxDepth=1x", ". --set maxDepth=-1", ". --set maxDepth=99999999999999999999",
          ". --set followsSymlinks=maybe", ". --set nothing=1", ". --size 10x10",
          ". --svg p.svg --size 0x10", "''", ". --svg ''"}},
        {"size", {"", "f ''"}},
        {"apps", {"now"}},
        {"leftovers", {"", "''", "a b"}},
        {"trash", {"f", "--within .", "--within .. ''", "--within '' f"}},
        {"access", {"now"}},
        {"log", {"--bytes -1"}},
        {"ports", {"a b", "--watch"}},
        {"kill",
         {"", "--yes", "0 --yes", "65536 --yes", "http --yes", "1 --pid 1 --yes", "--pid 1x --yes",
          "1"}},
        {"performance", {"now", "--limit -1", "--limit x"}},
        {"maintenance", {"", "dance", "ls dns"}},
        {"restore", {"a b", "''"}},
    };
    for (const auto& [command, lines] : refused) {
        for (const std::string& line : lines) {
            std::string words = command;
            words += ' ';
            words += line;
            const CommandResult result = runIn("exec \"$@\" --json " + words, {});
            EXPECT_EQ(result.status, 2) << words;
            EXPECT_THAT(result.output, IsEmpty()) << words;
            EXPECT_THAT(result.complaint, Not(IsEmpty())) << words;
        }
    }
    EXPECT_TRUE(home.has("f"));
    EXPECT_THAT(run({}).complaint, StartsWith("A command is required\n"));
    EXPECT_THAT(run({"dance"}).complaint, StartsWith("There is no command \"dance\"\n"));
    EXPECT_THAT(run({"--bogus"}).complaint, StartsWith("There is no option \"--bogus\"\n"));
    EXPECT_THAT(run({"scan"}).complaint, StartsWith("PATH is required\n"));
}

TEST_F(CommandLine, answersHelpAndVersionAtEveryLevel) {
    for (const std::string command :
         {"", "scan", "size", "access", "apps", "leftovers", "trash", "restore", "ports", "kill",
          "performance", "maintenance", "log"}) {
        for (const char* const option : {" --help", " --version"}) {
            std::string line = "exec \"$@\" " + command;
            line += option;
            const CommandResult result = runIn(line, {});
            EXPECT_EQ(result.status, 0) << line;
            EXPECT_THAT(result.output, HasSubstr("tolvanectl")) << line;
        }
    }
}

TEST_F(CommandLine, failsWhenTheOutputCannotBeWritten) {
    home.write("f", "content");
    const Arguments scan{"--json", "scan", "."};
    EXPECT_EQ(runIn("exec \"$@\" >/dev/full", scan).status, 1);
    EXPECT_THAT(runIn("exec \"$@\" >/dev/full", scan).complaint, HasSubstr("No space left"));
    EXPECT_EQ(runIn("exec \"$@\" >/dev/full", {"--help"}).status, 1);

    const CommandResult unread =
        runIn("mkfifo pipe; true <pipe & exec 4>pipe; wait; exec \"$@\" >&4", scan);
    EXPECT_EQ(unread.status, 1);
    EXPECT_THAT(unread.complaint, HasSubstr("Broken pipe")) << "its reader had gone";

    const CommandResult closed = runIn("exec \"$@\" >&-", {"trash", "--within", ".", "f"});
    EXPECT_EQ(closed.status, 1);
    EXPECT_TRUE(home.has("f")) << "whose receipt nobody could have read";
}

TEST_F(CommandLine, tellsTheAccess) {
    const nlohmann::json status = run({"access", "--json"}).json();
    EXPECT_TRUE(status.at("granted").is_boolean());
    EXPECT_TRUE(status.at("confirmed").is_boolean());
    EXPECT_THAT(status.at("guidance").get<std::string>(),
                StartsWith(status.at("detail").get<std::string>()));
    EXPECT_EQ(run({"access"}).output, status.at("guidance").get<std::string>() + "\n");
}

TEST_F(CommandLine, showsTheEndOfTheLogWithoutWritingToIt) {
    EXPECT_EQ(run({"log"}).output, "No log yet.\n");
    EXPECT_FALSE(home.has(".local"));
    const std::string log = "one\n\u061C\u200E\u200F\u202E\u2066\u2069 \u2065\u20AC\n"
                            "two \x1b[31m\n";
    home.write(".local/state/Logs/Tolvane/scan.log", log);
    EXPECT_EQ(run({"--json", "log"}).json(), (nlohmann::json{{"text", log}}));
    EXPECT_EQ(run({"log"}).output, "one\n?????? \u2065\u20AC\ntwo ?[31m\n")
        << "no orders to the terminal";
    EXPECT_EQ(run({"--json", "log", "--bytes", "5"}).json().at("text"), "[31m\n");
    EXPECT_EQ(home.read(".local/state/Logs/Tolvane/scan.log"), log);
}

TEST_F(CommandLine, measuresSingleItems) {
    home.write("folder/file", std::string(5000, 'x'));
    home.makeLink("folder/link", "12345");
    home.write("name \xFF", "123");
    const nlohmann::json sizes = run({"--json", "size", "folder/../folder", "name \xFF"}).json();
    ASSERT_EQ(sizes.size(), 2U);
    EXPECT_TRUE(tellsPath(sizes[0], "path", home.path("folder")));
    EXPECT_GE(sizes[0].at("logicalSize"), 5005);
    EXPECT_GE(sizes[0].at("allocatedSize"), 5000);
    EXPECT_TRUE(tellsPath(sizes[1], "path", home.path("name \xFF")));
    EXPECT_EQ(sizes[1].at("logicalSize"), 3);
    EXPECT_THAT(run({"size", "folder"}).output, HasSubstr("KB  " + home.path("folder")));

    const CommandResult missing = run({"--json", "size", "folder", "nowhere"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.output, IsEmpty());
    EXPECT_THAT(missing.complaint, HasSubstr(home.path("nowhere") + ": No such file"));
}

TEST_F(CommandLine, saysWhyAFolderCannotBeMeasured) {
    namespace fs = std::filesystem;
    home.makeFolder("closed");
    fs::permissions(home.path("closed"), fs::perms::none);
    // Where the program itself lies, not everybody may look.
    fs::copy_file(TOLVANECTL, home.path("program"));
    giveToOrdinaryUser(home.path(""));
    giveToOrdinaryUser(aside.path(""));
    const auto measure = [&] {
        const CommandResult result = runIn("exec ./program size . closed", {});
        return std::to_string(result.status) + result.output + result.complaint;
    };
    EXPECT_EQ(asOrdinaryUser(measure),
              "1Could not measure " + home.path("closed") + ": Permission denied\n");
    fs::permissions(home.path("closed"), fs::perms::owner_all);
}

TEST_F(CommandLine, showsProgressAndStylesOnATerminalOnly) {
    if (!std::filesystem::exists("/dev/pts/ptmx")) {
        GTEST_SKIP() << "this system gives no terminals";
    }
    home.makeFolder("a folder");
    const Arguments scan{"scan", "."};
    EXPECT_THAT(shownOnTerminal(2, "", scan),
                AllOf(StartsWith("\r"), HasSubstr(" folders"), HasSubstr("/s  0:00")));
    EXPECT_THAT(run(scan).complaint, IsEmpty());

    EXPECT_THAT(shownOnTerminal(1, "TERM=xterm NO_COLOR=", scan), HasSubstr("\x1b["));
    EXPECT_THAT(shownOnTerminal(1, "TERM=xterm NO_COLOR=1", scan), Not(HasSubstr("\x1b[")));
    EXPECT_THAT(run(scan).output, Not(HasSubstr("\x1b[")));
}

}
}
