#include <HostKit/HostLayout.h>
#include <Support/CountingFiles.h>
#include <Support/TemporaryHome.h>
#include <UninstallerKit/LeftoverFinder.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;
using Certainty = LeftoverOrigin::Certainty;
using Row = std::pair<std::string, std::string>;

const std::string id = "org.example.Paint";

/// With the table of darwin, unless a test takes another layout.
class Leftovers : public ::testing::Test {
  protected:
    LeftoverFinder finder(std::vector<std::string> prefixes = {}) const {
        const ProtectionPolicy policy(std::move(prefixes), std::vector<std::string>(), {});
        return {home.url(), home.url("system"),
                std::make_shared<CountingFiles>(systemFileManager(layout), counts), policy,
                layout.leftovers};
    }
    InstalledApp app(const std::string& name, std::vector<std::string> associated = {}) const {
        return {name + "!", name, "1", "", home.url("A"), false, std::move(associated)};
    }
    /// Path below the home and kind of each leftover.
    std::vector<Row> found(const InstalledApp& of, bool includeSystemLevel = true) const {
        std::vector<Row> rows;
        for (const LeftoverItem& item : finder().leftovers(of, includeSystemLevel)) {
            rows.emplace_back(item.url.path().substr(home.path("").size() + 1), item.kind);
        }
        return rows;
    }

    TemporaryHome home;
    HostLayout layout = HostLayout::darwin(home.url());
    std::shared_ptr<FileCounts> counts = std::make_shared<FileCounts>();
};

class LeftoversOnFreedesktop : public Leftovers {
  protected:
    LeftoversOnFreedesktop() {
        layout = HostLayout::freedesktop(home.url(), {{"XDG_DATA_DIRS", home.path("packages")}});
    }
};

TEST_F(Leftovers, lieInTheTwentyThreePlaces) {
    const std::vector<Row> places = {
        {"Library/Application Support/" + id, "Application Support"},
        {"Library/Caches/" + id, "Caches"},
        {"Library/Containers/" + id, "Container"},
        {"Library/Application Scripts/" + id, "Application Scripts"},
        {"Library/WebKit/" + id, "WebKit data"},
        {"Library/Logs/" + id, "Logs"},
        {"Library/Saved Application State/" + id + ".savedState", "Saved state"},
        {"Library/HTTPStorages/" + id, "HTTP storage"},
        {"Library/Application Support/CrashReporter/" + id, "Crash reports"},
        {"Library/Preferences/" + id + ".plist", "Preferences"},
        {"Library/Cookies/" + id + ".binarycookies", "Cookies"},
        {"Library/LaunchAgents/" + id + ".plist", "Launch agent"},
        {"Library/Preferences/ORG.example.paint.Helper.plist", "Preferences"},
        {"Library/Preferences/ByHost/" + id + ".0A1B.plist", "Preferences (ByHost)"},
        {"Library/Cookies/" + id + "s.other", "Cookies"},
        {"Library/HTTPStorages/" + id + ".binarycookies", "HTTP storage"},
        {"Library/LaunchAgents/" + id + ".agent.plist", "Launch agent"},
        {"Library/Group Containers/TEAM.org.EXAMPLE.paint.shared", "Group container"},
        {"system/Application Support/" + id, "System Application Support"},
        {"system/Caches/" + id, "System Caches"},
        {"system/Preferences/" + id + ".plist", "System Preferences"},
        {"system/LaunchAgents/" + id + ".plist", "System launch agent"},
        {"system/LaunchDaemons/" + id + ".plist", "System launch daemon"}};
    EXPECT_EQ(layout.leftovers.rows.size(), 23U);
    for (const auto& [path, kind] : places) {
        home.write(path, "x");
    }
    for (const char* const other :
         {"Library/Application Support/ORG.example.paint", "Library/Caches/org.example.Paint.more",
          "Library/x", "Library/Preferences/x.org.example.Paint.plist",
          "system/LaunchAgents/org.example.Paint.agent.plist"}) {
        home.write(other);
    }
    EXPECT_THAT(found(app(id)), UnorderedElementsAreArray(places));
    EXPECT_EQ(found(app(id), false).size(), 18U);
}

TEST_F(Leftovers, costOneTestForEachNameAndOneListingForEachFolder) {
    finder().leftovers(app(id, {id, "org.example.helper"}), true);
    EXPECT_EQ(counts->size(), 2U * 17 + 6);
    for (const auto& [path, count] : *counts) {
        EXPECT_EQ(count, 1) << path;
    }
}

TEST_F(Leftovers, areOneItemForEachPathTheLargestFirst) {
    home.write("Library/Preferences/" + id + ".plist", "x");
    home.write("Library/Caches/" + id + "/data", std::string(50'000, 'x'));
    home.write("Library/Logs/helper", std::string(10'000, 'x'));
    const std::vector<LeftoverItem> items =
        finder({home.path("Library/Logs")}).leftovers(app(id, {id, "helper", ""}), true);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_THAT((std::vector{items[0].kind, items[1].kind, items[2].kind}),
                ElementsAre("Caches", "Logs", "Preferences"));
    EXPECT_TRUE(items[1].isProtected && !items[0].isProtected);
    EXPECT_GE(items[0].size, 50'000);
    EXPECT_EQ(items[0].id(), home.path("Library/Caches/" + id));
    EXPECT_EQ(LeftoverFinder::totalSize(items), items[0].size + items[1].size + items[2].size);
}

TEST_F(Leftovers, tellHowSureTheyAre) {
    home.write("Library/Preferences/org.a.plist");
    home.write("Library/Preferences/org.apps.plist");
    home.write("Library/Group Containers/T.org.a.b");
    const InstalledApp a = app("org.a");
    const std::vector<LeftoverItem> items = finder().leftovers(a, true);
    const std::vector<LeftoverOrigin> origins = finder().origins(
        items, a,
        {a, app("org.apps"), app("none", {"org.a.b"}), app("x", {"../Preferences/org.a"})});
    ASSERT_EQ(items.size(), 3U); // of one size, so by path
    EXPECT_EQ(origins[0], (LeftoverOrigin{Certainty::byName, {"none!"}}));
    EXPECT_EQ(origins[1], (LeftoverOrigin{Certainty::exact, {}}));
    EXPECT_EQ(origins[2], (LeftoverOrigin{Certainty::byName, {"org.apps!"}}));
}

TEST_F(LeftoversOnFreedesktop, lieInTheFoldersOfTheUserAndTheSystem) {
    const std::vector<Row> places = {
        {".local/share/" + id, "Application Support"},
        {".cache/" + id, "Caches"},
        {".local/share/applications/" + id + ".desktop", "Application Scripts"},
        {".local/state/Logs/" + id, "Logs"},
        {".local/state/" + id, "Saved state"},
        {".config/" + id, "Preferences"},
        {".config/" + id + ".conf", "Preferences"},
        {".config/autostart/" + id + ".desktop", "Launch agent"},
        {".config/systemd/user/" + id + ".service", "Launch agent"},
        {".config/org.example.paintrc", "Preferences"},
        {".config/autostart/" + id + "-tray.desktop", "Launch agent"},
        {".config/systemd/user/" + id + ".timer", "Launch agent"},
        {"system/usr/local/share/" + id, "System Application Support"},
        {"system/var/cache/" + id, "System Caches"},
        {"system/etc/xdg/" + id + ".conf", "System Preferences"},
        {"system/etc/xdg/autostart/" + id + ".desktop", "System launch agent"},
        {"system/etc/systemd/system/" + id + ".service", "System launch daemon"}};
    EXPECT_EQ(layout.leftovers.rows.size(), 17U);
    for (const auto& [path, kind] : places) {
        home.write(path);
    }
    EXPECT_THAT(found(app(id)), UnorderedElementsAreArray(places));
    const HostLayout moved = HostLayout::freedesktop(home.url(), {{"XDG_CONFIG_HOME", "/else"}});
    EXPECT_EQ(moved.leftovers.rows.size(), 10U) << "nothing outside the home folder is searched";
}

TEST_F(LeftoversOnFreedesktop, areLookedForByIdentifiersOfOneApplicationOnly) {
    home.write(".config/code");
    home.write(".config/codeblocks");
    home.write(".config/short.x.y");
    home.write(".config/longer.than");
    EXPECT_THAT(found(app("code")), ElementsAre(Row(".config/code", "Preferences")));
    EXPECT_THAT(found(app("short.x")), IsEmpty());
    EXPECT_EQ(found(app("longer.t")).size(), 1U);
    for (const std::string shared : {"Applications", "autostart", "Mozilla", "ab"}) {
        home.makeFolder(".config/" + shared);
        EXPECT_THAT(found(app(shared)), IsEmpty()) << shared;
    }
    home.write(".cache/" + id);
    EXPECT_EQ(found(app(id)).size(), 1U);
    home.write("packages/applications/" + id + ".desktop");
    EXPECT_THAT(found(app(id)), IsEmpty()) << "a package has the same";
}

TEST_F(LeftoversOnFreedesktop, areNotTheApplicationItself) {
    home.write(".local/share/" + id + "/app/run");
    home.write(".config/" + id);
    InstalledApp inside = app(id);
    inside.url = home.url(".local/share/" + id + "/app");
    EXPECT_THAT(found(inside), ElementsAre(Row(".config/" + id, "Preferences")));
}

}
}
