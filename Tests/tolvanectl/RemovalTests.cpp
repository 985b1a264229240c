#include "ProgramTest.h"

#include <CleanupKit/ProtectionPolicy.h>
#include <HostKit/HostLayout.h>
#include <Support/OddNames.h>
#include <Support/TreeState.h>

#include <cstdio>

namespace tolvane {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;

class Removal : public ProgramTest {
  protected:
    void SetUp() override {
        const HostLayout layout = HostLayout::freedesktop(home.url(), {});
        if (ProtectionPolicy(layout.protection).isProtected(home.url())) {
            GTEST_SKIP() << "temporary files lie in a protected place here";
        }
    }
};

TEST_F(Removal, bringsEveryNameThereAndBack) {
    Arguments arguments{"--json", "trash", "--within", "work", "--"};
    std::vector<std::string> names = oddNames();
    // An argument is one path, whatever it looks like.
    names.insert(names.end(), {"[a,b]", "a", "{}", "%%"});
    for (const std::string& name : names) {
        home.write("work/" + name, "content of " + name);
        arguments.push_back("work/" + name);
    }
    const TreeState before = treeState(home.path("work"));

    const CommandResult trashed = run(arguments);
    ASSERT_EQ(trashed.status, 0) << trashed.complaint;
    const json receipts = trashed.json().at("receipts");
    EXPECT_EQ(receipts.size(), names.size());
    EXPECT_THAT(treeState(home.path("work")), IsEmpty());

    const CommandResult restored = run({"--json", "restore"}, trashed.output);
    EXPECT_EQ(restored.status, 0) << restored.complaint;
    EXPECT_EQ(restored.json(),
              (json{{"restored", names.size()}, {"failed", 0}, {"errors", json::array()}}));
    EXPECT_EQ(treeState(home.path("work")), before);
}

TEST_F(Removal, onlyTellsWhatItWouldMoveWhenAsked) {
    home.write("a/b/file");
    home.write("a/odd \xFF");
    const Arguments arguments{"trash",     "--within", "a",        "--within",  "b",
                              "--dry-run", "a/./b",    "a/b/file", "a/odd \xFF"};
    Arguments asJson = arguments;
    asJson.insert(asJson.begin(), "--json");
    const json accepted = run(asJson).json().at("accepted");
    ASSERT_EQ(accepted.size(), 2U) << "what lies in another item goes with it";
    EXPECT_EQ(accepted[0], home.path("a/b"));
    EXPECT_TRUE(tellsPath(accepted[1], "path", home.path("a/odd \xFF")));
    EXPECT_THAT(run(arguments).output, HasSubstr("Would move " + home.path("a/b") + "\n"));
    EXPECT_TRUE(home.has("a/b/file"));
    EXPECT_FALSE(home.has(".local/share/Trash/files/b"));
}

TEST_F(Removal, movesNothingWhenOneItemMayNotBeMoved) {
    home.write("in/a");
    home.write("out");
    const CommandResult result = run({"--json", "trash", "--within", "in", "in/a", "out"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_EQ(result.complaint, "Outside the scanned folder: " + home.path("out") + "\n");
    EXPECT_EQ(run({"trash", "--within", "in", "in"}).complaint,
              "Refusing to remove the scanned root: " + home.path("in") + "\n");
    EXPECT_EQ(run({"trash", "--dry-run", "--within", "/", "/etc/passwd"}).complaint,
              "Protected path: /etc/passwd\n");
    EXPECT_TRUE(home.has("in/a"));
}

TEST_F(Removal, tellsWhatCouldNotBePutBack) {
    home.write("w/a", "old");
    home.write("w/b", "old");
    const CommandResult trashed = run({"--json", "trash", "--within", "w", "w/a", "w/b"});
    home.write("w/a", "new");
    home.write("receipts", trashed.output);
    const CommandResult restored = run({"--json", "restore", "receipts"});
    EXPECT_EQ(restored.status, 1);
    const std::string description =
        "Could not restore " + home.path("w/a") + ": An item already exists there";
    EXPECT_EQ(restored.json(), (json{{"restored", 1}, {"failed", 1}, {"errors", {description}}}));
    EXPECT_EQ(restored.complaint, description + "\n");
    EXPECT_EQ(home.read("w/a"), "new");
    EXPECT_EQ(home.read("w/b"), "old");

    EXPECT_EQ(run({"restore", "nowhere"}).status, 1);
    EXPECT_EQ(run({"restore", "w"}).status, 1);
}

TEST_F(Removal, believesNoReceiptsThatAreNone) {
    home.write("f", "content");
    const std::string target = home.path("moved");
    const std::vector<json> wrong{
        json::array(),
        {{"receipts", 5}},
        {{"receipts", {5}}},
        {{"receipts", {{{"original", target}}}}},
        {{"receipts", {{{"original", "moved"}, {"trashed", home.path("f")}}}}},
        {{"receipts",
          {{{"original", target}, {"trashed", home.path("f")}, {"trashedBytes", "a b="}}}}},
        {{"receipts", {{{"original", target + std::string(1, '\0')}, {"trashed", "/x"}}}}},
    };
    std::vector<std::string> documents{"", "{", "\xFF", std::string(200'000, '[')};
    for (const json& document : wrong) {
        documents.push_back(document.dump());
    }
    for (const std::string& document : documents) {
        const CommandResult result = run({"--json", "restore"}, document);
        EXPECT_EQ(result.status, 1) << document;
        EXPECT_THAT(result.output, IsEmpty()) << document;
        EXPECT_THAT(result.complaint, testing::EndsWith("\n")) << document;
    }
    EXPECT_EQ(home.read("f"), "content");
    EXPECT_FALSE(home.has("moved"));
}

}
}
