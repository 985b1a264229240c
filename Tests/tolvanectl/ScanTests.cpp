#include "ProgramTest.h"

#include <HostKit/Date.h>
#include <HostKit/HostLayout.h>
#include <HostKit/Text.h>
#include <ScanKit/FileTreeScanner.h>
#include <Support/OddNames.h>

#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace tolvane {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A path or name that is not UTF-8 is told twice: as text, and its bytes.
void putPath(json& object, const std::string& key, const std::string& path) {
    object[key] = displayText(path);
    if (!isValidUTF8(path)) {
        object[key + "Bytes"] = base64(path);
    }
}

/// All that is to be printed of a node, but for its id.
json described(const FileNode& node) {
    const NodeTotals all = totals(node);
    json object{{"kind", rawValue(node.kind())},
                {"allocatedSize", node.allocatedSize()},
                {"logicalSize", node.logicalSize()},
                {"isPurgeable", node.isPurgeable()},
                {"modified", node.modified() ? json(iso8601(*node.modified())) : json()},
                {"hiddenBytes", node.hiddenBytes()},
                {"hiddenFiles", node.hiddenFiles()},
                {"hiddenDirectories", node.hiddenDirectories()},
                {"truncated", node.truncated()},
                {"totalAllocatedSize", all.totalAllocatedSize},
                {"totalLogicalSize", all.totalLogicalSize},
                {"totalPurgeableSize", all.totalPurgeableSize},
                {"fileCount", all.fileCount},
                {"directoryCount", all.directoryCount},
                {"listedFileCount", all.listedFileCount},
                {"listedDirectoryCount", all.listedDirectoryCount},
                {"children", json::array()}};
    putPath(object, "path", node.url().path());
    putPath(object, "name", std::string(node.name()));
    for (const FileNode& child : node.children()) {
        object["children"].push_back(described(child));
    }
    return object;
}

void eraseIDs(json& node) {
    EXPECT_EQ(node.at("id").get<std::string>().size(), 36U);
    node.erase("id");
    for (json& child : node.at("children")) {
        eraseIDs(child);
    }
}

class Scan : public ProgramTest {
  protected:
    json scan(const Arguments& more = {}) const {
        Arguments arguments{"--json", "scan", "tree"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.status, 0) << result.complaint;
        EXPECT_THAT(result.complaint, IsEmpty());
        return result.json();
    }
};

TEST_F(Scan, tellsEveryFieldOfEveryNode) {
    for (const std::string& name : oddNames()) {
        home.write("tree/" + name, name);
        home.write("tree/folder/" + name + "/file", std::string(5000, 'x'));
    }
    home.makeLink("tree/folder/link", "nowhere");
    home.write("tree/cache/CACHEDIR.TAG", "Signature: 8a477f597d28d172789f06886806bc55");
    ASSERT_EQ(::mkfifo(home.path("tree/pipe").c_str(), 0600), 0);
    json document = scan({"--set", "maxRetainedFilesPerDirectory=12"});
    EXPECT_EQ(document.at("outcome"), "completed");
    EXPECT_EQ(document.at("failures"), json::array());
    EXPECT_TRUE(document.at("seconds").is_number());

    ScanOptions options = fullScanOptions({});
    options.maxRetainedFilesPerDirectory = 12;
    FileTreeScanner scanner(options, systemFileManager(HostLayout{}));
    eraseIDs(document.at("root"));
    EXPECT_EQ(document.at("root"), described(scanner.scan(home.url("tree")).root));
}

TEST_F(Scan, printsLessWithoutCountingLess) {
    home.write("tree/a/b/c", std::string(20'000, 'x'));
    home.write("tree/a/d", std::string(10'000, 'x'));
    home.write("tree/e", "x");
    const json whole = scan().at("root");
    const json shallow = scan({"--depth", "1"}).at("root");
    EXPECT_EQ(shallow.at("totalAllocatedSize"), whole.at("totalAllocatedSize"));
    EXPECT_EQ(shallow.at("fileCount"), 3);
    ASSERT_EQ(shallow.at("children").size(), 2U);
    EXPECT_FALSE(shallow.at("children")[0].contains("children"));
    EXPECT_EQ(shallow.at("children")[0].at("fileCount"), 2);
    EXPECT_FALSE(scan({"--depth", "0"}).at("root").contains("children"));

    const json top = scan({"--top", "2", "--depth", "0"}).at("top");
    ASSERT_EQ(top.size(), 2U);
    EXPECT_EQ(top[0].at("path"), home.path("tree/a/b/c"));
    EXPECT_EQ(top[1].at("path"), home.path("tree/a/d"));
    EXPECT_FALSE(top[0].contains("children"));
    EXPECT_EQ(scan({"--top", "9"}).at("top").size(), 3U);
}

TEST_F(Scan, letsEveryOptionBeOverridden) {
    home.write("tree/.hidden");
    home.write("tree/.nofollow");
    home.write("tree/a/b/deep");
    home.write("tree/large", std::string(100'000, 'x'));
    ASSERT_EQ(::link(home.path("tree/large").c_str(), home.path("tree/larger").c_str()), 0);
    home.makeLink("tree/link", "a");
    // Files, listed files, folders, listed folders, bytes of "large" counted.
    using Counts = std::vector<std::int64_t>;
    const std::int64_t size = scan().at("root").at("totalAllocatedSize").get<std::int64_t>() / 2;
    const std::vector<std::pair<Arguments, Counts>> table{
        {{}, {5, 5, 3, 3, 2}},
        {{"skipsHiddenFiles=true"}, {4, 4, 3, 3, 2}},
        {{"followsSymlinks=true"}, {5, 5, 5, 5, 2}},
        {{"excludesNoFollowMarker=false"}, {6, 6, 3, 3, 2}},
        {{"deduplicatesHardlinks=true"}, {5, 5, 3, 3, 1}},
        {{"maxDepth=2"}, {4, 4, 3, 3, 2}},
        {{"progressInterval=0"}, {5, 5, 3, 3, 2}},
        {{"maxRetainedFilesPerDirectory=1"}, {5, 2, 3, 3, 2}},
        {{"maxRetainedNodes=0"}, {5, 0, 3, 3, 2}},
        {{"maxRetainedDirectories=1"}, {5, 4, 3, 1, 2}},
        {{"maxRetainedNodes=0", "keyFileSizeThreshold=50000"}, {5, 2, 3, 3, 2}},
        {{"maxRetainedNodes=0", "keyFileSizeThreshold=50000", "maxRetainedLargeFiles=1"},
         {5, 1, 3, 3, 2}},
        {{"excludedPathPrefixes=tree/a,,tree/large"}, {3, 3, 1, 1, 1}},
        {{"skipsHiddenFiles=true", "skipsHiddenFiles=false"}, {5, 5, 3, 3, 2}},
    };
    for (const auto& [settings, counts] : table) {
        Arguments arguments;
        for (const std::string& setting : settings) {
            arguments.insert(arguments.end(), {"--set", setting});
        }
        const json root = scan(arguments).at("root");
        const Counts found{root.at("fileCount"), root.at("listedFileCount"),
                           root.at("directoryCount"), root.at("listedDirectoryCount"),
                           root.at("totalAllocatedSize").get<std::int64_t>() / size};
        EXPECT_EQ(found, counts) << testing::PrintToString(settings);
    }
}

TEST_F(Scan, tellsPeopleWhatFillsAFolder) {
    home.write("tree/small/file", std::string(4000, 'x'));
    home.write("tree/Large/file", std::string(300'000, 'x'));
    home.write("tree/one", "1");
    home.write("tree/two", std::string(50'000, '2'));
    home.makeLink("tree/lost", "nowhere");
    const CommandResult result =
        run({"scan", "tree", "--top", "1", "--set", "maxRetainedFilesPerDirectory=1", "--set",
             "followsSymlinks=true", "--set", "excludedPathPrefixes=tree/small"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output,
                AllOf(HasSubstr(home.path("tree") + "\n"), HasSubstr(" in 3 files and 3 folders"),
                      HasSubstr("1 smaller item, "), HasSubstr("Largest files\n"),
                      HasSubstr(home.path("tree/Large/file")),
                      HasSubstr("Not counted: " + home.path("tree/small") + ", items named"),
                      Not(HasSubstr("small/\n"))));
    EXPECT_LT(result.output.find("Large/"), result.output.find("two\n"));
    EXPECT_EQ(result.complaint, "1 item could not be read:\n  " + home.path("tree/lost") +
                                    ": No such file or directory\n");
}

TEST_F(Scan, failsOnWhatCannotBeListed) {
    home.write("file");
    for (const std::string path : {"file", "nowhere", "nowhere/below"}) {
        for (const Arguments& arguments : {Arguments{"scan", path}, {"--json", "scan", path}}) {
            const CommandResult result = run(arguments);
            EXPECT_EQ(result.status, 1) << path;
            EXPECT_THAT(result.output, IsEmpty()) << path;
            EXPECT_THAT(result.complaint, HasSubstr("Could not list " + home.path(path) + ": "));
        }
    }
}

TEST_F(Scan, takesTheNameOfACommandForAPath) {
    home.makeFolder("log");
    EXPECT_EQ(run({"--json", "scan", "log"}).json().at("root").at("path"), home.path("log"));
}

TEST_F(Scan, printsThePartialResultOfACancelledScan) {
    // Two links back into the folder make a walk that nobody sees the end of.
    home.write("tree/file", "content");
    home.makeLink("tree/again", ".");
    home.makeLink("tree/and again", ".");
    for (const int signal : {SIGINT, SIGTERM}) {
        const CommandResult asJson =
            runSignalled(signal, {"--json", "scan", "tree", "--set", "followsSymlinks=true"});
        const CommandResult asText =
            runSignalled(signal, {"scan", "tree", "--set", "followsSymlinks=true"});
        EXPECT_EQ(asJson.status, 130);
        EXPECT_EQ(asJson.json().at("outcome"), "cancelled");
        EXPECT_EQ(asJson.json().at("root").at("path"), home.path("tree"));
        EXPECT_EQ(asText.status, 130);
        EXPECT_THAT(asText.output, HasSubstr("cancelled: a partial result"));
    }
}

TEST_F(Scan, drawsThePictureOfTheChildren) {
    home.write("tree/<img src=x> & \x1b", std::string(30'000, 'x'));
    home.write("tree/b", std::string(10'000, 'x'));
    home.write("tree/empty");
    const CommandResult result =
        run({"scan", "tree", "--svg", "p.svg", "--size", "400x300", "--depth", "0"});
    EXPECT_EQ(result.status, 0) << result.complaint;
    const std::string picture = home.read("p.svg");
    EXPECT_THAT(picture,
                AllOf(HasSubstr("width=\"400\" height=\"300\""),
                      HasSubstr("<title>&lt;img src=x&gt; &amp; ?, "), HasSubstr("<title>b, "),
                      Not(HasSubstr("<title>empty")), testing::EndsWith("</svg>\n")));

    EXPECT_THAT(picture, HasSubstr(">b</text><text")) << "its size stands below";

    run({"scan", "tree", "--svg", "p.svg", "--set", "maxRetainedFilesPerDirectory=1"});
    EXPECT_THAT(home.read("p.svg"),
                AllOf(HasSubstr("<title>2 smaller items, "), Not(HasSubstr("<title>b, "))))
        << "what is not kept takes its share too";

    const CommandResult failed = run({"scan", "tree", "--svg", "nowhere/p.svg"});
    EXPECT_EQ(failed.status, 1);
    EXPECT_THAT(failed.complaint, HasSubstr("Could not write " + home.path("nowhere/p.svg")));
    EXPECT_THAT(failed.output, HasSubstr("3 files")) << "the scan is not lost";
}

}
}
