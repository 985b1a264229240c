#include <HostKit/HostLayout.h>
#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace tolvane {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> described(const std::vector<HostLayout::QuickPlace>& places) {
    std::vector<std::string> lines;
    for (const HostLayout::QuickPlace& place : places) {
        lines.push_back(place.title + " | " + place.symbol + " | " + place.url.path());
    }
    return lines;
}

std::vector<std::string> described(const HostLayout::Access& access) {
    std::vector<std::string> lines;
    for (const HostLayout::AccessProbe& probe : access.probes) {
        lines.push_back(probe.label + " | " + probe.url.path());
    }
    return lines;
}

/// Sets a variable of this process for one test.
class SetVariable {
  public:
    SetVariable(const char* name, const char* value)
        : name_(name) {
        if (const char* const before = std::getenv(name)) {
            before_ = before;
        }
        set(value);
    }
    ~SetVariable() { set(before_ ? before_->c_str() : nullptr); }
    SetVariable(const SetVariable&) = delete;
    SetVariable& operator=(const SetVariable&) = delete;

  private:
    void set(const char* value) const {
        if (value) {
            ::setenv(name_, value, 1);
        } else {
            ::unsetenv(name_);
        }
    }

    const char* name_;
    std::optional<std::string> before_;
};

TEST(HostLayout, ofDarwinHoldsItsPlaces) {
    const HostLayout layout = HostLayout::darwin(FileURL("/Users/ada"));
    EXPECT_EQ(layout.locations.home.path(), "/Users/ada");
    EXPECT_EQ(layout.locations.libraryDirectory.path(), "/Users/ada/Library");
    EXPECT_EQ(layout.locations.downloads.path(), "/Users/ada/Downloads");
    EXPECT_EQ(layout.locations.homeTrash.path(), "/Users/ada/.Trash");
    EXPECT_FALSE(layout.locations.purgeableFolder) << "the system marks files itself";
    EXPECT_THAT(described(layout.access),
                ElementsAre("TCC.db | /Library/Application Support/com.apple.TCC/TCC.db",
                            "Mail | /Users/ada/Library/Mail",
                            "Safari history | /Users/ada/Library/Safari/History.db"));
    EXPECT_THAT(described(layout.quickLocations),
                ElementsAre("Home | house | /Users/ada",
                            "Downloads | arrow.down.circle | /Users/ada/Downloads",
                            "Applications | square.grid.2x2 | /Applications",
                            "Library | books.vertical | /Users/ada/Library",
                            "Macintosh HD | internaldrive | /"));
    EXPECT_TRUE(layout.protection.additionalPrefixes.empty());
    EXPECT_TRUE(layout.protection.additionalExactPaths.empty());
    EXPECT_FALSE(layout.exclusions.usesMountTable);
}

TEST(HostLayout, ofFreedesktopHoldsItsPlaces) {
    const HostLayout layout = HostLayout::freedesktop(FileURL("/home/ada"), {});
    EXPECT_EQ(layout.locations.libraryDirectory.path(), "/home/ada/.local/state");
    EXPECT_EQ(layout.locations.downloads.path(), "/home/ada/Downloads");
    EXPECT_EQ(layout.locations.userDefaultsFile.path(), "/home/ada/.config/Tolvane/Tolvane.conf");
    EXPECT_EQ(layout.locations.homeTrash.path(), "/home/ada/.local/share/Trash");
    EXPECT_EQ(layout.locations.purgeableFolder, FileURL("/home/ada/.cache"));
    EXPECT_THAT(described(layout.access),
                ElementsAre("shadow | /etc/shadow", "root home | /root", "sudoers | /etc/sudoers"));
    EXPECT_THAT(described(layout.quickLocations),
                ElementsAre("Home | house | /home/ada",
                            "Downloads | arrow.down.circle | /home/ada/Downloads",
                            "Applications | square.grid.2x2 | /home/ada/Applications",
                            "Local Data | books.vertical | /home/ada/.local",
                            "File System | internaldrive | /"));
    EXPECT_EQ(layout.protection.additionalPrefixes.size(), 23U);
    EXPECT_EQ(layout.protection.additionalExactPaths.size(), 8U);
    EXPECT_THAT(layout.protection.additionalPrefixes, ::testing::Not(::testing::Contains("/run")))
        << "removable media lie below it";
    EXPECT_TRUE(layout.exclusions.usesMountTable);
    EXPECT_EQ(layout.sources.proc.path(), "/proc");
}

TEST(HostLayout, followsAbsoluteBaseDirectoriesOnly) {
    const HostLayout moved =
        HostLayout::freedesktop(FileURL("/home/ada"), {{"XDG_DATA_HOME", "/d/"},
                                                       {"XDG_CONFIG_HOME", "/c"},
                                                       {"XDG_CACHE_HOME", "/x/./cache"},
                                                       {"XDG_STATE_HOME", "/s"},
                                                       {"XDG_DOWNLOAD_DIR", "/big/downloads"}});
    EXPECT_EQ(moved.locations.homeTrash.path(), "/d/Trash");
    EXPECT_EQ(moved.locations.userDefaultsFile.path(), "/c/Tolvane/Tolvane.conf");
    EXPECT_EQ(moved.locations.purgeableFolder, FileURL("/x/cache"));
    EXPECT_EQ(moved.locations.libraryDirectory.path(), "/s");
    EXPECT_EQ(moved.locations.downloads.path(), "/big/downloads");
    EXPECT_EQ(moved.quickLocations[1].url.path(), "/big/downloads");

    const HostLayout ignored = HostLayout::freedesktop(
        FileURL("/home/ada"),
        {{"XDG_DATA_HOME", "data"}, {"XDG_STATE_HOME", ""}, {"XDG_CACHE_HOME", "~/cache"}});
    EXPECT_EQ(ignored.locations.homeTrash.path(), "/home/ada/.local/share/Trash");
    EXPECT_EQ(ignored.locations.libraryDirectory.path(), "/home/ada/.local/state");
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
    const SetVariable homeVariable("HOME", home.url().path().c_str());
    const SetVariable config("XDG_CONFIG_HOME", nullptr);
    const SetVariable data("XDG_DATA_HOME", "relative");
    const SetVariable download("XDG_DOWNLOAD_DIR", nullptr);
    const HostLayout layout = HostLayout::current();
    EXPECT_EQ(layout.locations.home, home.url());
    EXPECT_EQ(layout.locations.homeTrash, home.url(".local/share/Trash"));
    EXPECT_EQ(layout.locations.downloads, home.url("Downloads"));

    const SetVariable notAbsolute("HOME", "somewhere");
    EXPECT_TRUE(HostLayout::current().locations.home.path().starts_with('/'))
        << "the password database decides";
}

TEST(HostLayout, ofThisMachineReadsTheFolderForDownloads) {
    const TemporaryHome home;
    const SetVariable homeVariable("HOME", home.url().path().c_str());
    const SetVariable config("XDG_CONFIG_HOME", nullptr);
    const SetVariable download("XDG_DOWNLOAD_DIR", nullptr);
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
}

}
}
