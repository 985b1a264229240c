#include "ProgramTest.h"

namespace tolvane {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class Apps : public ProgramTest {
  protected:
    Apps() {
        home.write("Applications/paint-1.2/bin/paint", std::string(10'000, 'x'));
        home.write(".local/share/applications/org.example.paint.desktop",
                   "[Desktop Entry]\nName=Paint\x1b[31m\nExec=" +
                       home.path("Applications/paint-1.2/bin/paint") + "\n");
        home.write(".local/share/applications/packaged.desktop", "[Desktop Entry]\nExec=/bin/sh\n");
        home.write("Applications/odd\xFF.AppDir/x");
        home.write(".config/org.example.paint/settings", "x");
        home.write(".config/org.example.paintings", "x");
    }
};

TEST_F(Apps, areListedWithWhatIsKnownOfThem) {
    const nlohmann::json apps = run({"--json", "apps"}).json();
    ASSERT_EQ(apps.size(), 2U);
    EXPECT_TRUE(tellsPath(apps[0], "path", home.path("Applications/odd\xFF.AppDir")));
    EXPECT_TRUE(tellsPath(apps[0], "id", "odd\xFF"));
    EXPECT_EQ(apps[1].dump(),
              R"({"associatedBundleIDs":[],"bundleID":"org.example.paint",)"
              R"("id":"org.example.paint","isSystem":false,"name":"Paint\u001b[31m",)"
              R"("path":")" +
                  home.path("Applications/paint-1.2") +
                  R"(","teamID":"org.example.paint","version":"1.2"})");
    EXPECT_GE(run({"--json", "apps", "--sizes", "--system"}).json()[1].at("size"), 10'000);
    EXPECT_THAT(run({"apps", "--sizes"}).output,
                AllOf(HasSubstr("Paint?[31m"), HasSubstr("  12 KB  "),
                      HasSubstr("org.example.paint"),
                      HasSubstr("\nPrograms that came as packages are not listed")));
}

TEST_F(Apps, leaveWhatIsListedByIdentifier) {
    const nlohmann::json found = run({"--json", "leftovers", "org.example.paint"}).json();
    EXPECT_EQ(found.at("app").at("id"), "org.example.paint");
    EXPECT_EQ(found.at("totalSize"), 3 * 4096);
    ASSERT_EQ(found.at("leftovers").size(), 3U);
    const std::string settings = home.path(".config/org.example.paint");
    EXPECT_EQ(found.at("leftovers")[0].dump(),
              R"({"id":")" + settings + R"(","isProtected":false,"kind":"Preferences","path":")" +
                  settings + R"(","size":4096})");
    home.makeFolder("Applications/org.example.paintings.AppDir");
    EXPECT_THAT(run({"leftovers", "org.example.paint", "--system-level"}).output,
                AllOf(HasSubstr("Paint?[31m (org.example.paint) leaves 12 KB in 3 items\n"),
                      HasSubstr("  Preferences          exact  "),
                      HasSubstr("  by name, also of org.example.paintings  ")));
    const CommandResult unknown = run({"--json", "leftovers", "packaged"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.output, "");
    EXPECT_EQ(unknown.complaint, "No application with the identifier \"packaged\" is installed\n");
}

}
}
