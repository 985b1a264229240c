#include <HostKit/HostLayout.h>
#include <Support/MadePropertyLists.h>
#include <Support/OddNames.h>
#include <Support/TemporaryHome.h>
#include <UninstallerKit/AppInventory.h>
#include <UninstallerKit/LeftoverFinder.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

namespace tolvane {
namespace {

using testing::IsEmpty;

class AppFaults : public ::testing::TestWithParam<const char*> {
  protected:
    AppFaults()
        : layout(std::string_view(GetParam()) == "darwin"
                     ? HostLayout::darwin(home.url())
                     : HostLayout::freedesktop(home.url(), {})) {
        home.write("Documents/thesis", "years of work");
        home.makeFolder("system");
    }

    std::vector<InstalledApp> scan() const {
        return AppInventory(systemFileManager(layout), home.url(),
                            std::vector{home.url("Applications")}, layout.applications)
            .scan(true);
    }
    std::vector<LeftoverItem> leftovers(const InstalledApp& app) const {
        return LeftoverFinder(home.url(), home.url("system"), systemFileManager(layout),
                              ProtectionPolicy(layout.protection), layout.leftovers)
            .leftovers(app, true);
    }

    TemporaryHome home;
    HostLayout layout;
};

INSTANTIATE_TEST_SUITE_P(Hosts, AppFaults, testing::Values("darwin", "freedesktop"));

/// Whatever bundles and launchers call themselves, nothing but entries of the listed folders is
/// theirs.
TEST_P(AppFaults, identifiersLeadNowhereElse) {
    std::vector<std::string> identifiers = oddNames();
    for (const char* const more : {"../../Documents", "../../../Documents", ".", "..", "/", "",
                                   "a/b", "/etc", "x/../../..", "../", "org.example.app\n"}) {
        identifiers.emplace_back(more);
    }
    std::vector<FileURL> folders;
    for (const LeftoverRow& row : layout.leftovers.rows) {
        folders.push_back(
            home.url(row.root == LeftoverRoot::home ? "" : "system").appending(row.folder));
        std::filesystem::create_directories(folders.back().standardized().path());
    }
    InstalledApp all{"All", "all", "1", "", home.url("Applications/All.app"), false, identifiers};
    for (const LeftoverItem& item : leftovers(all)) {
        const FileURL folder = item.url.standardized().deletingLastPathComponent();
        EXPECT_THAT(folders, testing::Contains(folder)) << item.url.path();
        EXPECT_NE(item.url.lastPathComponent(), "Documents");
    }
    const std::string folder = "Applications/x.app/Contents/";
    home.write(folder + "Info.plist",
               xmlPropertyList(Strings{{"CFBundleIdentifier", "../../Documents"}}));
    ASSERT_EQ(scan().size(), 1U);
    EXPECT_THAT(leftovers(scan().front()), IsEmpty());
}

/// What an application tells may be anything; then it is listed by its file name.
TEST_P(AppFaults, hostileDescriptionsAreLeftOut) {
    const std::string good = xmlPropertyList(Strings{{"CFBundleIdentifier", "good"}});
    std::vector<std::string> contents{"", std::string(1000, '\0'), "\r\r", "<plist><dict>\n[x"};
    for (const std::string& large : {good, std::string(8'000'000, '<')}) {
        contents.push_back(large + std::string(8'000'000, ' '));
    }
    contents.push_back(binaryObjects({binaryArray({0, 0})}));
    for (std::size_t i = 0; i < contents.size(); ++i) {
        const std::string name = "Applications/App" + std::to_string(i);
        home.write(name + ".app/Contents/Info.plist", contents[i]);
        home.write(name + ".AppDir/AppRun");
        home.write(name + ".AppDir/a.desktop", contents[i]);
        home.write(".local/share/applications/" + std::to_string(i) + ".desktop", contents[i]);
    }
    home.makeFolder("Applications/pipe.app/Contents");
    ASSERT_EQ(::mkfifo(home.path("Applications/pipe.app/Contents/Info.plist").c_str(), 0600), 0);
    home.makeLink("Applications/zero.app/Contents/Info.plist", "/dev/zero");
    home.makeFolder("Applications/folder.app/Contents/Info.plist");
    const std::vector<InstalledApp> apps = scan();
    EXPECT_GE(apps.size(), contents.size() + 3);
    for (const InstalledApp& app : apps) {
        EXPECT_EQ(app.url.lastPathComponent().find(app.bundleID), 0U) << app.bundleID;
        EXPECT_EQ(app.version, "\u2014");
    }
}

}
}
