#include "ProgramTest.h"

#include <unistd.h>

namespace tolvane {
namespace {

class Performance : public ProgramTest {};

TEST_F(Performance, isToldInFull) {
    home.write(".config/autostart/a \xFF.desktop", "[Desktop Entry]\nName=Mine\x1b\nExec=/x\n");
    const nlohmann::json told = run({"--json", "performance", "--limit", "3"}).json();
    const auto memory = [&](const char* key) {
        return told.at("memory").at(key).get<std::int64_t>();
    };
    EXPECT_EQ(memory("total"), std::int64_t{::sysconf(_SC_PHYS_PAGES)} * ::sysconf(_SC_PAGESIZE));
    EXPECT_EQ(memory("used"), memory("total") - memory("free") - memory("inactive"));
    EXPECT_GT(told.at("volume").at("total"), told.at("volume").at("available"));
    EXPECT_EQ(told.at("processes").size(), 3U);
    EXPECT_TRUE(told.at("snapshots").at("system").is_array());
    std::vector<nlohmann::json> mine = told.at("agents");
    std::erase_if(mine, [](const nlohmann::json& agent) { return agent.at("scope") != "user"; });
    ASSERT_EQ(mine.size(), 1U);
    EXPECT_TRUE(tellsPath(mine[0], "path", home.path(".config/autostart/a \xFF.desktop")));
    EXPECT_EQ(mine[0].at("program"), "/x");
    EXPECT_THAT(run({"performance", "--limit", "1"}).output,
                testing::AllOf(testing::HasSubstr(", pressure: "), testing::HasSubstr("Mine?")));
}

TEST_F(Performance, isMaintained) {
    const bool isInstalled = ::access("/usr/bin/update-desktop-database", X_OK) == 0;
    const std::string message = isInstalled ? "Rebuilt the Launch Services database for this user."
                                            : "lsregister not found";
    EXPECT_EQ(run({"--json", "maintenance", "ls"}).json(),
              (nlohmann::json{{"isSuccess", isInstalled}, {"message", message}}));
    const CommandResult text = run({"maintenance", "ls"});
    EXPECT_EQ(text.output + text.complaint, message + "\n");
    EXPECT_EQ(text.status, isInstalled ? 0 : 1);
    EXPECT_EQ(home.has(".local/share/applications/mimeinfo.cache"), isInstalled);
}

}
}
