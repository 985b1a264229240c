#include "ProgramTest.h"

#include <unistd.h>

namespace tolvane {
namespace {

using testing::HasSubstr;

class Performance : public ProgramTest {};

TEST_F(Performance, isToldInFull) {
    home.write(".config/autostart/mine \xFF.desktop", "[Desktop Entry]\nName=Mine\x1b\nExec=/x\n");
    const nlohmann::json told = run({"--json", "performance", "--limit", "3"}).json();
    const nlohmann::json& memory = told.at("memory");
    EXPECT_EQ(memory.at("total"),
              std::int64_t{::sysconf(_SC_PHYS_PAGES)} * ::sysconf(_SC_PAGESIZE));
    EXPECT_EQ(memory.at("used"), memory.at("total").get<std::int64_t>() -
                                     memory.at("free").get<std::int64_t>() -
                                     memory.at("inactive").get<std::int64_t>());
    EXPECT_GT(told.at("volume").at("total"), told.at("volume").at("available"));
    ASSERT_EQ(told.at("processes").size(), 3U);
    EXPECT_GE(told.at("processes")[0].at("rssBytes"), told.at("processes")[1].at("rssBytes"));
    const std::string path = home.path(".config/autostart/mine \xFF.desktop");
    const auto isMine = [&](const nlohmann::json& agent) { return tellsPath(agent, "path", path); };
    const nlohmann::json& agents = told.at("agents");
    const auto mine = std::find_if(agents.begin(), agents.end(), isMine);
    ASSERT_NE(mine, agents.end());
    EXPECT_TRUE(tellsPath(*mine, "id", path));
    EXPECT_EQ(mine->at("program"), "/x");
    EXPECT_EQ(mine->at("scope"), "user");
    EXPECT_TRUE(told.at("snapshots").at("system").is_array());

    const std::string text = run({"performance", "--limit", "1"}).output;
    EXPECT_THAT(text, HasSubstr(", pressure: "));
    EXPECT_THAT(text, HasSubstr("Mine?"));
}

TEST_F(Performance, isMaintained) {
    const bool isInstalled = ::access("/usr/bin/update-desktop-database", X_OK) == 0;
    const CommandResult text = run({"maintenance", "ls"});
    const CommandResult document = run({"--json", "maintenance", "ls"});
    const std::string message = isInstalled ? "Rebuilt the Launch Services database for this user."
                                            : "lsregister not found";
    EXPECT_EQ(document.json(), (nlohmann::json{{"isSuccess", isInstalled}, {"message", message}}));
    EXPECT_EQ(text.output, isInstalled ? message + "\n" : "");
    EXPECT_EQ(text.complaint, isInstalled ? "" : message + "\n");
    EXPECT_EQ(text.status, isInstalled ? 0 : 1);
    EXPECT_EQ(home.has(".local/share/applications/mimeinfo.cache"), isInstalled);
}

}
}
