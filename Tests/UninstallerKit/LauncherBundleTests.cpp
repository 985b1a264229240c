#include <HostKit/HostLayout.h>
#include <Support/MadePropertyLists.h>
#include <Support/TemporaryHome.h>
#include <UninstallerKit/AppIcons.h>
#include <UninstallerKit/AppInventory.h>
#include <UninstallerKit/RunningApp.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// The inventory of a system whose launchers are desktop entries.
class LauncherBundle : public ::testing::Test {
  protected:
    void makeImage(const std::string& path, char type = 2) const {
        home.write(path, std::string({'\x7F', 'E', 'L', 'F', 2, 1, 1, 0, 'A', 'I', type}));
    }
    void makeLauncher(const std::string& id, const std::string& program,
                      const std::string& more = "") const {
        home.write(".local/share/applications/" + id + ".desktop",
                   "[Desktop Entry]\nName=" + id + "!\nExec=\"" + program + "\" %U\n" + more);
    }
    std::vector<InstalledApp> scan() const {
        return AppInventory(files, home.url(), std::nullopt, layout.applications).scan(false);
    }
    /// Paths below the home.
    std::vector<std::string> bundles() const {
        std::vector<std::string> paths;
        for (const InstalledApp& app : scan()) {
            paths.push_back(app.url.path().substr(home.path("").size() + 1));
        }
        return paths;
    }
    InstalledApp only() const {
        const std::vector<InstalledApp> apps = scan();
        EXPECT_EQ(apps.size(), 1U);
        return apps.empty() ? InstalledApp() : apps.front();
    }

    TemporaryHome home;
    HostLayout layout = HostLayout::freedesktop(
        home.url(),
        {{"PATH", home.path(".local/bin") + ":relative:/usr/bin"}, {"LC_MESSAGES", "de_DE.UTF-8"}});
    std::shared_ptr<const FileManager> files = systemFileManager(layout);
};

TEST_F(LauncherBundle, isAnImageAFolderOrWhatALauncherLeadsInto) {
    makeImage("Applications/One-1.AppImage");
    makeImage("AppImages/Two.appimage", 1);
    makeImage(".local/bin/tools/Three.APPIMAGE");
    makeImage("Applications/Zero.AppImage", 0);
    makeImage("Applications/NoExtension");
    makeImage("Applications/a/b/TooDeep.AppImage");
    makeImage("Downloads/Elsewhere.AppImage");
    makeImage("Applications/.Hidden.AppImage");
    home.write("Applications/Text.AppImage", "#!/bin/sh\n");
    home.makeLink("Applications/Linked.AppImage", home.path("AppImages/Two.appimage"));
    home.makeFolder("Applications/Empty.AppDir");
    home.makeFolder(".local/opt/maker/Inner.app");
    home.write(".local/opt/run/AppRun");
    home.write(".local/opt/run/x.desktop", "[Desktop Entry]\nName=x\n");
    home.write(".local/opt/no entry/AppRun");
    home.write(".local/opt/plain/program");
    makeLauncher("system", "/usr/bin/env");
    makeLauncher("gone", home.path(".local/opt/plain/missing"));
    EXPECT_THAT(bundles(),
                UnorderedElementsAre("Applications/One-1.AppImage", "AppImages/Two.appimage",
                                     ".local/bin/tools/Three.APPIMAGE", "Applications/Empty.AppDir",
                                     ".local/opt/maker/Inner.app", ".local/opt/run"));
}

TEST_F(LauncherBundle, isTheFolderThatLaunchersLeadInto) {
    home.write(".local/opt/tool-2.1/bin/tool");
    home.makeLink(".local/bin/tool", home.path(".local/opt/tool-2.1/bin/tool"));
    makeLauncher("tool", "tool");
    home.write("Applications/maker/one/bin/run");
    home.write("Applications/maker/two/run");
    makeLauncher("one", home.path("Applications/maker/one/bin/run"));
    makeLauncher("nested/two", home.path("Applications/maker/two/run"));
    home.write("Applications/mixed/bare/run");
    makeImage("Applications/mixed/Beside.AppImage");
    makeLauncher("bare", home.path("Applications/mixed/bare/run"));
    home.write("Applications/direct");
    makeLauncher("direct", home.path("Applications/direct"));
    EXPECT_THAT(bundles(), UnorderedElementsAre(".local/opt/tool-2.1", "Applications/maker/one",
                                                "Applications/maker/two", "Applications/mixed/bare",
                                                "Applications/mixed/Beside.AppImage"))
        << "what holds other applications is none";
}

TEST_F(LauncherBundle, tellsWhatItsDescriptorTells) {
    const std::string image = "Applications/My Tool_v1.20.3-x86_64.AppImage";
    const FileURL url = home.url(image);
    makeImage(image);
    const std::string stem = "My Tool_v1.20.3-x86_64";
    EXPECT_EQ(only(), (InstalledApp{stem, stem, "1.20.3", "", url, false, {}}));
    makeLauncher("org.z.tool", home.path(image), "Name[de]=Werkzeug\nVersion=1.0\n");
    EXPECT_EQ(only(),
              (InstalledApp{"Werkzeug", "org.z.tool", "1.20.3", "org.z.tool", url, false, {}}));
    makeLauncher("org.a.tool", "/missing",
                 "TryExec=" + home.path(image) + "\nX-AppImage-Version=7\n");
    EXPECT_EQ(
        only(),
        (InstalledApp{"org.a.tool!", "org.a.tool", "7", "org.a.tool", url, false, {"org.z.tool"}}));
}

TEST_F(LauncherBundle, tellsWhatItHoldsBeforeItsLaunchers) {
    home.write("Applications/Own.AppDir/AppRun");
    home.write("Applications/Own.AppDir/b.desktop", "[Desktop Entry]\nName=B\n");
    home.write("Applications/Own.AppDir/a.desktop", "[Desktop Entry]\nName=A\n");
    makeLauncher("outside", home.path("Applications/Own.AppDir/AppRun"));
    EXPECT_EQ(only().bundleID, "a");
    EXPECT_EQ(only().version, "\u2014");
    EXPECT_THAT(only().associatedBundleIDs, ElementsAre("outside"));
    home.write("Applications/Own.AppDir/Contents/Info.plist",
               xmlPropertyList(Strings{{"CFBundleIdentifier", "org.own"}}));
    EXPECT_EQ(only().bundleID, "org.own");
    EXPECT_EQ(only().name, "Own");
    EXPECT_THAT(only().associatedBundleIDs, ElementsAre("outside"));
}

TEST_F(LauncherBundle, runsWhenAProcessRunsSomethingInIt) {
    home.write(".local/opt/tool/bin/tool");
    home.makeLink("Applications", home.path(".local/opt"));
    makeLauncher("tool", "/missing", "TryExec=" + home.path("Applications/tool/bin/tool") + "\n");
    const InstalledApp app = only();
    EXPECT_EQ(app.url, home.url("Applications/tool"));
    EXPECT_TRUE(isRunning(app, *files, {"/bin/sh", home.path(".local/opt/tool/bin/tool")}));
    EXPECT_FALSE(isRunning(app, *files, {"/bin/sh", home.path(".local/opt/tools/bin/tool")}));
}

TEST_F(LauncherBundle, hasTheIconThatIsNamedForIt) {
    const std::string theme = ".local/share/icons/hicolor/";
    for (const char* const name : {"48x48/apps/tool.png", "256x256/apps/tool.png",
                                   "scalable/apps/drawn.svg", "64x64/mimetypes/other.png"}) {
        home.write(theme + name);
    }
    home.write(".icons/flat.png");
    home.write("picture of mine");
    home.write("Applications/Own.AppDir/a.desktop", "[Desktop Entry]\nName=A\nIcon=own\n");
    home.write("Applications/Own.AppDir/own.svg");
    const std::string image = "Applications/Tool.AppImage";
    makeImage(image);
    const struct {
        std::string icon;
        std::string file;
    } cases[] = {{"tool", theme + "256x256/apps/tool.png"},
                 {"drawn.svg", theme + "scalable/apps/drawn.svg"},
                 {"flat", ".icons/flat.png"},
                 {home.path("picture of mine"), "picture of mine"},
                 {home.path("Applications"), ""},
                 {"other", ""},
                 {"../Own.AppDir/own.svg", ""},
                 {"", ""}};
    for (const auto& each : cases) {
        makeLauncher("tool", home.path(image), "Icon=" + each.icon + "\n");
        const AppIcons icons(*files, layout.applications);
        const std::vector<InstalledApp> apps = scan();
        ASSERT_EQ(apps.size(), 2U);
        EXPECT_EQ(icons.file(apps[0]), home.url("Applications/Own.AppDir/own.svg"));
        EXPECT_EQ(icons.file(apps[1]),
                  each.file.empty() ? std::nullopt : std::optional(home.url(each.file)))
            << each.icon;
    }
}

}
}
