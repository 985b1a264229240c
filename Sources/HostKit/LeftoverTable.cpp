#include <HostKit/LeftoverTable.h>

namespace tolvane {
namespace {

using enum LeftoverRoot;
using enum LeftoverMatch;

/// A place in one of the user's folders; without a place when that lies outside the home folder.
struct UserRow {
    FileURL base;
    std::string below;
    LeftoverMatch match;
    std::string ending;
    std::string kind;
};

}

LeftoverTable LeftoverTable::darwin() {
    LeftoverTable table;
    table.rows = {{home, "Library/Application Support", exact, "", "Application Support"},
                  {home, "Library/Caches", exact, "", "Caches"},
                  {home, "Library/Containers", exact, "", "Container"},
                  {home, "Library/Application Scripts", exact, "", "Application Scripts"},
                  {home, "Library/WebKit", exact, "", "WebKit data"},
                  {home, "Library/Logs", exact, "", "Logs"},
                  {home, "Library/Saved Application State", exact, ".savedState", "Saved state"},
                  {home, "Library/HTTPStorages", exact, "", "HTTP storage"},
                  {home, "Library/Application Support/CrashReporter", exact, "", "Crash reports"},
                  {home, "Library/Preferences", exact, ".plist", "Preferences"},
                  {home, "Library/Cookies", exact, ".binarycookies", "Cookies"},
                  {home, "Library/LaunchAgents", exact, ".plist", "Launch agent"},
                  {home, "Library/Preferences", begins, "", "Preferences"},
                  {home, "Library/Preferences/ByHost", begins, "", "Preferences (ByHost)"},
                  {home, "Library/Cookies", begins, "", "Cookies"},
                  {home, "Library/HTTPStorages", begins, "", "HTTP storage"},
                  {home, "Library/LaunchAgents", begins, "", "Launch agent"},
                  {home, "Library/Group Containers", contains, "", "Group container"},
                  {systemLibrary, "Application Support", exact, "", "System Application Support"},
                  {systemLibrary, "Caches", exact, "", "System Caches"},
                  {systemLibrary, "Preferences", exact, ".plist", "System Preferences"},
                  {systemLibrary, "LaunchAgents", exact, ".plist", "System launch agent"},
                  {systemLibrary, "LaunchDaemons", exact, ".plist", "System launch daemon"}};
    return table;
}

LeftoverTable LeftoverTable::freedesktop(const UserFolders& folders,
                                         std::vector<FileURL> otherLaunchers) {
    const std::vector<UserRow> userRows = {
        {folders.data, "", exact, "", "Application Support"},
        {folders.cache, "", exact, "", "Caches"},
        {folders.data, "/applications", exact, ".desktop", "Application Scripts"},
        {folders.state, "/Logs", exact, "", "Logs"},
        {folders.state, "", exact, "", "Saved state"},
        {folders.config, "", exact, "", "Preferences"},
        {folders.config, "", exact, ".conf", "Preferences"},
        {folders.config, "/autostart", exact, ".desktop", "Launch agent"},
        {folders.config, "/systemd/user", exact, ".service", "Launch agent"},
        {folders.config, "", begins, "", "Preferences"},
        {folders.config, "/autostart", begins, "", "Launch agent"},
        {folders.config, "/systemd/user", begins, "", "Launch agent"}};
    LeftoverTable table;
    const std::string inside = folders.home.path() + "/";
    for (const UserRow& row : userRows) {
        const std::string path = row.base.path() + row.below;
        if (path.starts_with(inside)) {
            table.rows.push_back(
                {home, path.substr(inside.size()), row.match, row.ending, row.kind});
        }
    }
    table.rows.insert(
        table.rows.end(),
        {{systemLibrary, "usr/local/share", exact, "", "System Application Support"},
         {systemLibrary, "var/cache", exact, "", "System Caches"},
         {systemLibrary, "etc/xdg", exact, ".conf", "System Preferences"},
         {systemLibrary, "etc/xdg/autostart", exact, ".desktop", "System launch agent"},
         {systemLibrary, "etc/systemd/system", exact, ".service", "System launch daemon"}});
    table.gates = LeftoverGates{.shortest = 3,
                                .longest = 255,
                                .shortestBeginning = 8,
                                .sharedNames = {"applications",
                                                "autostart",
                                                "backgrounds",
                                                "bin",
                                                "dbus-1",
                                                "dconf",
                                                "desktop-directories",
                                                "evolution",
                                                "flatpak",
                                                "fontconfig",
                                                "fonts",
                                                "gnome-shell",
                                                "gtk-2.0",
                                                "gtk-3.0",
                                                "gtk-4.0",
                                                "gvfs-metadata",
                                                "icons",
                                                "keyrings",
                                                "kwalletd",
                                                "logs",
                                                "man",
                                                "menus",
                                                "mime",
                                                "mozilla",
                                                "nautilus",
                                                "pulse",
                                                "snap",
                                                "sounds",
                                                "systemd",
                                                "themes",
                                                "thumbnails",
                                                "trash",
                                                "webkitgtk",
                                                "xorg"},
                                .otherLaunchers = std::move(otherLaunchers)};
    return table;
}

}
