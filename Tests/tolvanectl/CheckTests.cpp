#include "ProgramTest.h"

namespace tolvane {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class Check : public ProgramTest {
  protected:
    Check() {
        home.write(".cache/a", "a");
        home.write("Downloads/odd \xFF", std::string(2'000, 'x'));
        home.write("Downloads/copy", std::string(2'000, 'x'));
        home.write("Elsewhere/copy", std::string(2'000, 'x'));
        home.makeFolder("Applications/paint\xFF.AppDir");
        home.write(".config/paint\xFF/settings", "s");
    }
};

TEST_F(Check, printsOneDocumentOfItsThreeParts) {
    const CommandResult result = run({"--json", "check"});
    const nlohmann::json report = result.json();
    EXPECT_EQ(result.complaint, "Measuring junk\nInventorying applications\n"
                                "Looking for duplicates\nSummarizing\n");
    EXPECT_EQ(report.at("junk").size(), 5U);
    EXPECT_EQ(report.at("junk")[0].dump(),
              R"({"bytes":4096,"exists":true,"id":")" + home.path(".cache") +
                  R"(","name":"Caches","path":")" + home.path(".cache") + R"("})");
    ASSERT_EQ(report.at("apps").size(), 1U);
    EXPECT_TRUE(tellsPath(report.at("apps")[0].at("app"), "bundleID", "paint\xFF"));
    EXPECT_TRUE(
        tellsPath(report.at("apps")[0].at("leftovers")[0], "path", home.path(".config/paint\xFF")));
    EXPECT_EQ(
        report.at("duplicates"),
        run({"--json", "duplicates", home.path("Downloads"), "--minimum-size", "1024"}).json());
    EXPECT_EQ(report.at("duplicateBytes"), 2'000);
    EXPECT_EQ(report.at("reclaimableBytes"), report.at("junkBytes").get<int>() + 4'096 + 2'000);
    EXPECT_TRUE(report.at("generatedAt").is_string());
    EXPECT_TRUE(report.at("duration").is_number());
}

TEST_F(Check, looksForDuplicatesWhereItIsTold) {
    EXPECT_EQ(
        run({"--json", "check", "--duplicates-root", "Elsewhere"}).json().at("duplicateBytes"), 0);
    EXPECT_TRUE(run({"--json", "check", "--no-duplicates"}).json().at("duplicates").is_null());
    EXPECT_EQ(run({"check", "--no-duplicates", "--duplicates-root", "Elsewhere"}).status, 2);
    EXPECT_THAT(run({"check", "--duplicates-root", "."}).output,
                AllOf(HasSubstr("Up to "), HasSubstr("4 KB  Caches"), HasSubstr("paint\uFFFD"),
                      HasSubstr("\nDuplicates, 4 KB\n3 files in 1 group below "),
                      HasSubstr("counts twice")));
}

}
}
