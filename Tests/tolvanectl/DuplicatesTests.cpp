#include "ProgramTest.h"

#include <DuplicatesKit/DuplicateScanner.h>
#include <HostKit/HostLayout.h>
#include <Support/OddNames.h>
#include <Support/TreeState.h>

#include <unistd.h>

#include <csignal>

namespace tolvane {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Duplicates : public ProgramTest {
  protected:
    CommandResult search(Arguments more, const std::string& place = "tree") const {
        Arguments arguments{"duplicates", place, "--minimum-size", "1"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    /// Copies of one text: "a", "b", and two names of a third file.
    void writeTree() const {
        home.write("tree/a", "the same");
        home.write("tree/b", "the same");
        home.write("tree/c", "the same");
        link("tree/a", "tree/a too");
        link("tree/c", "tree/d");
    }
    void link(const std::string& from, const std::string& to) const {
        ASSERT_EQ(::link(home.path(from).c_str(), home.path(to).c_str()), 0);
    }
};

std::string nul(const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths) {
        text += path + '\0';
    }
    return text;
}

TEST_F(Duplicates, tellEveryFieldOfTheResult) {
    for (const std::string& name : oddNames()) {
        home.write("tree/" + name, "one");
        home.write("tree/folder/" + name, "other");
    }
    const CommandResult printed = search({"--include-hidden", "--json"});
    EXPECT_EQ(printed.status, 0);
    EXPECT_THAT(printed.complaint, IsEmpty());
    const json document = printed.json();

    DuplicateScanner scanner({1, false, {}}, systemFileManager(HostLayout{}));
    const DuplicateScanResult expected = scanner.scan(home.url("tree"));
    EXPECT_EQ(document.size(), 8U);
    EXPECT_EQ(document.at("root"), home.path("tree"));
    EXPECT_EQ(document.at("scannedFiles"), expected.scannedFiles);
    EXPECT_EQ(document.at("candidateFiles"), expected.candidateFiles);
    EXPECT_EQ(document.at("wastedBytes"), expected.wastedBytes());
    EXPECT_EQ(document.at("duplicateFiles"), expected.duplicateFiles());
    EXPECT_EQ(document.at("errors"), json::array());
    EXPECT_EQ(document.at("cancelled"), false);
    ASSERT_EQ(document.at("groups").size(), expected.groups.size());
    for (std::size_t at = 0; at < expected.groups.size(); ++at) {
        const DuplicateGroup& group = expected.groups[at];
        const json& told = document.at("groups")[at];
        EXPECT_EQ(told.size(), 5U);
        EXPECT_EQ(told.at("id"), group.id());
        EXPECT_EQ(told.at("hash"), group.hash());
        EXPECT_EQ(told.at("size"), group.size);
        EXPECT_EQ(told.at("wastedBytes"), group.wastedBytes());
        ASSERT_EQ(told.at("files").size(), group.files.size());
        for (std::size_t file = 0; file < group.files.size(); ++file) {
            EXPECT_TRUE(tellsPath(told.at("files")[file], "path", group.files[file].id()));
            EXPECT_EQ(told.at("files")[file].at("size"), group.size);
            EXPECT_EQ(told.at("files")[file].at("modified"), iso8601(*group.files[file].modified));
        }
    }
}

TEST_F(Duplicates, arePrintedForPeople) {
    writeTree();
    home.write("tree/.hidden", "the same");
    home.write("tree/bad\n\x1b[31mname", "the same");
    const CommandResult result = search({});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        result.output,
        AllOf(HasSubstr("\n6 files in 1 group, 0 KB can be freed; 6 files looked at, 6 compared"),
              HasSubstr("\n  keep  " + home.path("tree/a") + "\n"),
              HasSubstr("\n  copy  " + home.path("tree/a too") + "  (same file, frees nothing)\n"),
              HasSubstr("\n  copy  " + home.path("tree/b") + "\n"),
              HasSubstr("\n  copy  " + home.path("tree/bad??[31mname") + "\n"),
              HasSubstr("\n  copy  " + home.path("tree/d") + "  (same file as " +
                        home.path("tree/c") + ", frees nothing)\n"),
              HasSubstr("\nLeft out: links, the contents of packages, hidden items, files below"),
              Not(HasSubstr(".hidden"))));
    EXPECT_THAT(run({"duplicates", "tree", "--minimum-size", "9"}).output,
                HasSubstr("No files of equal content; 0"));
    EXPECT_THAT(run({"duplicates", "tree"}).output, HasSubstr("files below 1 MiB\n"));
    home.write("tree/sub/a", "the same");
    EXPECT_THAT(search({"--exclude", "tree/sub", "--exclude", home.path("tree/b")}).output,
                AllOf(HasSubstr("\n5 files in 1 group"), HasSubstr(", " + home.path("tree/sub"))));
}

TEST_F(Duplicates, copiesGoToTheTrashByAPipe) {
    writeTree();
    home.write("tree/new\nline", "the same");
    const TreeState before = treeState(home.path("tree"));
    const CommandResult copies = search({"--print0"});
    EXPECT_EQ(copies.status, 0);
    EXPECT_EQ(copies.output, nul({home.path("tree/b"), home.path("tree/c"), home.path("tree/d"),
                                  home.path("tree/new\nline")}));
    const CommandResult receipts = runIn("\"$@\" duplicates tree --print0 --minimum-size 1 | xargs "
                                         "-0 \"$1\" --json trash --within tree",
                                         {});
    EXPECT_EQ(receipts.status, 0) << receipts.complaint;
    EXPECT_EQ(treeState(home.path("tree")).size(), 2U) << "both names of the kept file";
    EXPECT_EQ(run({"restore"}, receipts.output).status, 0);
    EXPECT_EQ(treeState(home.path("tree")), before);
}

TEST_F(Duplicates, mistakesAndFailuresAreTold) {
    writeTree();
    const std::string missing = home.path("missing");
    const std::vector<std::pair<Arguments, CommandResult>> table{
        {{"duplicates", "tree", "--print0", "--json"},
         {2, "", "--print0 and --json exclude each other\n"}},
        {{"duplicates", "missing"},
         {1, "", "Could not list " + missing + ": No such file or directory\n"}},
        {{"--json", "duplicates", "tree/a"},
         {1, "", "Could not list " + home.path("tree/a") + ": Not a directory\n"}},
    };
    for (const auto& [arguments, expected] : table) {
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.status, expected.status);
        EXPECT_EQ(result.output, expected.output);
        EXPECT_EQ(result.complaint, expected.complaint);
    }
    EXPECT_EQ(search({"--minimum-size", "-1"}).status, 2);
    EXPECT_EQ(search({"--exclude", ""}).status, 2);
}

TEST_F(Duplicates, cancelledAreMarked) {
    writeTree();
    const CommandResult result = runSignalled(SIGINT, {"--json", "duplicates", "/usr"});
    EXPECT_EQ(result.status, 130);
    EXPECT_EQ(result.json().at("cancelled"), true);
    EXPECT_EQ(result.json().at("groups"), json::array());
}

}
}
