#include <HostKit/HostLayout.h>
#include <Support/MadePropertyLists.h>
#include <Support/TemporaryHome.h>
#include <UninstallerKit/AppIcons.h>
#include <UninstallerKit/AppInventory.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The inventory of a system whose bundles have information dictionaries, its folders moved below
/// a temporary home.
class InventoryOfBundles : public ::testing::Test {
  protected:
    InventoryOfBundles() {
        places.folders = {home.path("shared"), "Applications"};
        places.systemFolders = {home.path("system")};
        places.systemPrefixes = {home.path("system")};
    }

    void makeApp(const std::string& bundle, const Strings& dictionary = {}) const {
        home.write(bundle + "/Contents/Info.plist", xmlPropertyList(dictionary));
    }
    AppInventory inventory() const {
        return AppInventory(systemFileManager(layout), home.url(), std::nullopt, places);
    }
    std::vector<std::string> names(bool includeSystem = false) const {
        std::vector<std::string> found;
        for (const InstalledApp& app : inventory().scan(includeSystem)) {
            found.push_back(app.name);
        }
        return found;
    }
    InstalledApp only() const {
        const std::vector<InstalledApp> apps = inventory().scan(false);
        EXPECT_EQ(apps.size(), 1U);
        return apps.empty() ? InstalledApp() : apps.front();
    }

    TemporaryHome home;
    HostLayout layout = HostLayout::darwin(home.url());
    ApplicationPlaces places = layout.applications;
};

TEST_F(InventoryOfBundles, searchesTheFoldersOfTheLayout) {
    EXPECT_THAT(layout.applications.folders, ElementsAre("/Applications", "Applications"));
    EXPECT_THAT(layout.applications.systemFolders, ElementsAre("/System/Applications"));
    EXPECT_THAT(layout.applications.systemPrefixes, ElementsAre("/System"));
    for (const char* const name :
         {"shared/Here.app", "shared/Utilities/One Down.app", "shared/Utilities/More/Two Down.app",
          "shared/Here.app/Inside.app", "shared/.Hidden.app", "shared/Other Case.APP",
          "system/System.app"}) {
        makeApp(name);
    }
    makeApp("system/Twin.app", {{"CFBundleIdentifier", "com.apple.twin"}});
    makeApp("Applications/Ours.app", {{"CFBundleIdentifier", "com.apple.ours"}});
    home.write("Applications/file.app");
    home.makeLink("Applications/Linked.app", home.path("shared/Here.app"));
    EXPECT_THAT(names(), ElementsAre("Here", "Linked", "One Down"));
    EXPECT_THAT(names(true), ElementsAre("Here", "Linked", "One Down", "Ours", "System", "Twin"));
    for (const InstalledApp& app : inventory().scan(true)) {
        EXPECT_EQ(app.isSystem, app.name == "System" || app.name == "Twin") << app.name;
    }
    const AppInventory given(systemFileManager(layout), home.url(),
                             std::vector{home.url("missing"), home.url("shared/Utilities")},
                             places);
    ASSERT_EQ(given.scan(true).size(), 2U);
    EXPECT_GT(given.size(given.scan(false).front()), 0);
}

TEST_F(InventoryOfBundles, readsWhatADictionaryTells) {
    const std::string bundle = "shared/Bundle.name.app";
    const auto expectOnly = [&](const InstalledApp& expected) {
        EXPECT_EQ(only(), expected) << expected.name << expected.version << expected.teamID;
    };
    const FileURL url = home.url(bundle);
    home.makeFolder(bundle);
    expectOnly({"Bundle.name", "Bundle.name", "\u2014", "", url, false, {}});
    Strings all{{"CFBundleIdentifier", "org.a"}, {"CFBundleName", "N"}, {"CFBundleVersion", "17"}};
    makeApp(bundle, all);
    expectOnly({"N", "org.a", "17", "org.a", url, false, {}});
    all.insert({{"CFBundleDisplayName", ""}, {"CFBundleShortVersionString", "1.7"}});
    all["TeamIdentifier"] = "TEAM";
    for (const std::string& bytes : {xmlPropertyList(all), binaryPropertyList(all)}) {
        home.write(bundle + "/Contents/Info.plist", bytes);
        expectOnly({"", "org.a", "1.7", "TEAM", url, false, {}});
    }
    home.write(bundle + "/Contents/Info.plist",
               xmlPropertyList("<dict><key>CFBundleIdentifier</key><integer>1</integer>"
                               "<key>CFBundleVersion</key><real>2.5</real></dict>"));
    expectOnly({"Bundle.name", "Bundle.name", "\u2014", "", url, false, {}});
}

TEST_F(InventoryOfBundles, collectsAssociatedIdentifiers) {
    const auto associatedWith = [&](const std::string& list) {
        home.write(
            "shared/A.app/Contents/Info.plist",
            xmlPropertyList("<dict><key>AssociatedBundleIdentifiers</key>" + list + "</dict>"));
        return only().associatedBundleIDs;
    };
    const std::string items = "shared/A.app/Contents/Library/LoginItems/";
    EXPECT_THAT(
        associatedWith("<array><string>z</string><string>B</string><string>z</string></array>"),
        ElementsAre("B", "z"));
    EXPECT_THAT(associatedWith("<array><string>z</string><integer>1</integer></array>"), IsEmpty());
    EXPECT_THAT(associatedWith("<string>z</string>"), IsEmpty());
    makeApp(items + "Helper.app", {{"CFBundleIdentifier", "org.a.helper"}});
    makeApp(items + "Silent.app", {});
    makeApp(items + "Other.bundle", {{"CFBundleIdentifier", "org.a.other"}});
    EXPECT_THAT(associatedWith("<array><string>z</string></array>"),
                ElementsAre("org.a.helper", "z"));
}

TEST_F(InventoryOfBundles, keepsTheFirstOfAnIdentifierAndSortsByName) {
    for (const char* const name : {"App 10", "app 9", "Zebra", "\u00c4rger"}) {
        makeApp(std::string("shared/") + name + ".app", {{"CFBundleName", name}});
    }
    makeApp("shared/Same.app", {{"CFBundleIdentifier", "org.same"}, {"CFBundleName", "First"}});
    makeApp("Applications/Same.app",
            {{"CFBundleIdentifier", "org.same"}, {"CFBundleName", "Second"}});
    EXPECT_THAT(names(), ElementsAre("app 9", "App 10", "\u00c4rger", "First", "Zebra"));

    int asked = 0;
    const std::vector<InstalledApp> some = inventory().scan(false, [&] { return ++asked > 3; });
    EXPECT_EQ(asked, 4) << "once for each bundle";
    EXPECT_EQ(some.size(), 3U);
}

TEST_F(InventoryOfBundles, hasTheIconAmongItsResources) {
    home.write("shared/A.app/Contents/Resources/Art.icns");
    for (const char* const name : {"Art", "Art.icns", "../Resources/Art.icns", "missing"}) {
        makeApp("shared/A.app", {{"CFBundleIconFile", name}});
        const bool isThere = std::string(name).starts_with("Art");
        EXPECT_EQ(AppIcons(*systemFileManager(layout), places).file(only()),
                  isThere ? std::optional(home.url("shared/A.app/Contents/Resources/Art.icns"))
                          : std::nullopt)
            << name;
    }
}

}
}
