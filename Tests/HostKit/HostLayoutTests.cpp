#include <HostKit/HostLayout.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace tolvane {
namespace {

using ::testing::ElementsAre;

/// The places of a layout: its folders, its probes and its quick locations.
std::vector<std::string> described(const HostLayout& layout) {
    const HostLayout::Locations& of = layout.locations;
    std::vector<std::string> lines{of.home.path(), of.libraryDirectory.path(), of.downloads.path(),
                                   of.userDefaultsFile.path(), of.homeTrash.path()};
    for (const HostLayout::AccessProbe& probe : layout.access.probes) {
        lines.push_back(probe.label + " | " + probe.url.path());
    }
    for (const HostLayout::QuickPlace& place : layout.quickLocations) {
        lines.push_back(place.title + " | " + place.symbol + " | " + place.url.path());
    }
    return lines;
}

TEST(HostLayout, ofFreedesktopHoldsItsPlaces) {
    const HostLayout layout = HostLayout::freedesktop(FileURL("/home/ada"), {});
    EXPECT_THAT(
        described(layout),
        ElementsAre(
            "/home/ada", "/home/ada/.local/state", "/home/ada/Downloads",
            "/home/ada/.config/Tolvane/Tolvane.conf", "/home/ada/.local/share/Trash",
            "shadow | /etc/shadow", "root home | /root", "sudoers | /etc/sudoers",
            "Home | house | /home/ada", "Downloads | arrow.down.circle | /home/ada/Downloads",
            "Applications | square.grid.2x2 | /home/ada/Applications",
            "Local Data | books.vertical | /home/ada/.local", "File System | internaldrive | /"));
    EXPECT_EQ(layout.locations.purgeableFolder, FileURL("/home/ada/.cache"));
    EXPECT_EQ(layout.protection.additionalPrefixes.size(), 23U);
    EXPECT_EQ(layout.protection.additionalExactPaths.size(), 8U);
    EXPECT_EQ(layout.sources.proc.path(), "/proc");
}

TEST(HostLayout, listsWhereProgramsAreStartedByThemselves) {
    const HostLayout layout = HostLayout::freedesktop(
        FileURL("/h"), {{"XDG_CONFIG_DIRS", "/a:b:/c"}, {"XDG_CURRENT_DESKTOP", "ubuntu:GNOME"}});
    std::vector<std::string> folders;
    for (const StartupFolder& folder : layout.startup.folders) {
        folders.push_back(folder.scope + " " + folder.path);
    }
    EXPECT_THAT(folders, ElementsAre("user /h/.config/autostart", "user /h/.config/systemd/user",
                                     "system /a/autostart", "system /c/autostart",
                                     "system /etc/systemd/user", "daemon /etc/systemd/system"));
    EXPECT_THAT(layout.startup.desktops, ElementsAre("ubuntu", "GNOME"));
}

TEST(HostLayout, followsAbsoluteBaseDirectoriesOnly) {
    const HostLayout moved =
        HostLayout::freedesktop(FileURL("/home/ada"), {{"XDG_DATA_HOME", "/d/"},
                                                       {"XDG_CONFIG_HOME", "/c"},
                                                       {"XDG_CACHE_HOME", "/x/./cache"},
                                                       {"XDG_STATE_HOME", "/s"},
                                                       {"XDG_DOWNLOAD_DIR", "/big/downloads"}});
    EXPECT_THAT(
        described(moved),
        testing::IsSupersetOf({"/d/Trash", "/c/Tolvane/Tolvane.conf", "/s", "/big/downloads",
                               "Downloads | arrow.down.circle | /big/downloads"}));
    EXPECT_EQ(moved.locations.purgeableFolder, FileURL("/x/cache"));

    const HostLayout ignored = HostLayout::freedesktop(
        FileURL("/home/ada"),
        {{"XDG_DATA_HOME", "data"}, {"XDG_STATE_HOME", ""}, {"XDG_CACHE_HOME", "~/cache"}});
    EXPECT_EQ(described(ignored), described(HostLayout::freedesktop(FileURL("/home/ada"), {})));
    EXPECT_EQ(ignored.locations.purgeableFolder, FileURL("/home/ada/.cache"));
}

TEST(HostLayout, namesHomesByTheirUsualName) {
    HostLayout layout;
    EXPECT_EQ(layout.underHome(FileURL("/var/home/ada")).path(), "/var/home/ada");
    layout.homeAlias = "/var/home";
    EXPECT_EQ(layout.underHome(FileURL("/var/home/ada/x")).path(), "/home/ada/x");
    EXPECT_EQ(layout.underHome(FileURL("/var/home")).path(), "/home");
    EXPECT_EQ(layout.underHome(FileURL("/var/homes/ada")).path(), "/var/homes/ada");
}

TEST(HostLayout, ofThisMachineFollowsTheEnvironment) {
    const TemporaryHome home;
    ::setenv("HOME", home.url().path().c_str(), 1);
    ::setenv("XDG_DATA_HOME", "relative", 1);
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("XDG_DOWNLOAD_DIR");
    const HostLayout layout = HostLayout::current();
    EXPECT_EQ(layout.locations.home, home.url());
    EXPECT_EQ(layout.locations.homeTrash, home.url(".local/share/Trash"));
    EXPECT_EQ(layout.locations.downloads, home.url("Downloads"));
    const auto downloadsWith = [&](std::string_view table) {
        home.write(".config/user-dirs.dirs", table);
        return HostLayout::current().locations.downloads;
    };
    EXPECT_EQ(downloadsWith("# written by hand\nXDG_DESKTOP_DIR=\"$HOME/Desk\"\n"
                            "XDG_DOWNLOAD_DIR=\"$HOME/Get \\\"it\\\"\"\n"),
              home.url("Get \"it\""));
    EXPECT_EQ(downloadsWith("  XDG_DOWNLOAD_DIR=\"/big/downloads\""), FileURL("/big/downloads"));
    for (const char* const useless :
         {"XDG_DOWNLOAD_DIR=\"$HOME/\"\n", "XDG_DOWNLOAD_DIR=\"Here\"\n", "XDG_DOWNLOAD_DIR=\"",
          "XDG_DOWNLOAD_DIR=", "#XDG_DOWNLOAD_DIR=\"/no\"\n", "XDG_DOWNLOAD_DIR=\"$HOMER/x\"\n"}) {
        EXPECT_EQ(downloadsWith(useless), home.url("Downloads")) << useless;
    }
    ::setenv("HOME", "somewhere", 1);
    EXPECT_TRUE(HostLayout::current().locations.home.path().starts_with('/'))
        << "the password database decides";
}

}
}
