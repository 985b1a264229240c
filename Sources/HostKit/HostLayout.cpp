#include <HostKit/HostLayout.h>

#include <algorithm>

namespace tolvane {
namespace {

constexpr std::string_view homeFolders = "/home";

/// The folder that the variable names, else `usual`. The conventions tell to ignore relative ones.
FileURL folderFrom(const EnvironmentVariables& environment, const std::string& variable,
                   const FileURL& usual) {
    const auto found = environment.find(variable);
    const bool isSet = found != environment.end() && found->second.starts_with('/');
    return isSet ? FileURL(found->second).standardized() : usual;
}

/// What the variable lists between colons.
std::vector<std::string> listFrom(const EnvironmentVariables& environment,
                                  const std::string& variable, std::string_view usual) {
    const auto found = environment.find(variable);
    const bool isSet = found != environment.end() && !found->second.empty();
    std::string_view rest = isSet ? std::string_view(found->second) : usual;
    std::vector<std::string> entries;
    while (!rest.empty()) {
        entries.emplace_back(rest.substr(0, rest.find(':')));
        rest.remove_prefix(std::min(entries.back().size() + 1, rest.size()));
    }
    return entries;
}

/// The absolute folders that the variable lists.
std::vector<FileURL> foldersFrom(const EnvironmentVariables& environment,
                                 const std::string& variable, std::string_view usual) {
    std::vector<FileURL> folders;
    for (const std::string& entry : listFrom(environment, variable, usual)) {
        if (entry.starts_with('/')) {
            folders.push_back(FileURL(entry).standardized());
        }
    }
    return folders;
}

std::string localeOfTexts(const EnvironmentVariables& environment) {
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const auto found = environment.find(name);
        if (found != environment.end() && !found->second.empty()) {
            return found->second;
        }
    }
    return "C";
}

/// The base folders of the Icon Theme specification 0.13.
std::vector<FileURL> iconFolders(const FileURL& home, const FileURL& data,
                                 const EnvironmentVariables& environment) {
    std::vector<FileURL> folders{home.appending(".icons"), data.appending("icons")};
    for (const FileURL& shared :
         foldersFrom(environment, "XDG_DATA_DIRS", "/usr/local/share:/usr/share")) {
        folders.push_back(shared.appending("icons"));
    }
    folders.emplace_back("/usr/share/pixmaps");
    return folders;
}

ApplicationPlaces applicationPlaces(const FileURL& home, const FileURL& data,
                                    const EnvironmentVariables& environment) {
    return {.format = BundleFormat::desktopEntry,
            .folders = {"Applications", "AppImages", ".local/opt", ".local/bin"},
            .systemFolders = {"/opt"},
            .systemPrefixes = {"/System", "/usr", "/opt"},
            .launchers = data.appending("applications"),
            .programFolders = foldersFrom(environment, "PATH", ""),
            .iconFolders = iconFolders(home, data, environment),
            .locale = localeOfTexts(environment),
            .leftOut = "Programs that came as packages are not listed: remove them with the "
                       "system's package manager, flatpak or snap."};
}

StartupPlaces startupPlaces(const FileURL& config, const EnvironmentVariables& environment) {
    StartupPlaces places{
        .folders = {{"user", StartupFormat::autostart, config.appending("autostart").path()},
                    {"user", StartupFormat::unit, config.appending("systemd/user").path()}},
        .desktops = listFrom(environment, "XDG_CURRENT_DESKTOP", ""),
        .programFolders = foldersFrom(environment, "PATH", ""),
        .locale = localeOfTexts(environment)};
    for (const FileURL& shared : foldersFrom(environment, "XDG_CONFIG_DIRS", "/etc/xdg")) {
        places.folders.push_back(
            {"system", StartupFormat::autostart, shared.appending("autostart").path()});
    }
    places.folders.push_back({"system", StartupFormat::unit, "/etc/systemd/user"});
    places.folders.push_back({"daemon", StartupFormat::unit, "/etc/systemd/system"});
    return places;
}

/// Where launchers of programs lie that somebody else than the user installed.
std::vector<FileURL> launchersOfOthers(const FileURL& data,
                                       const EnvironmentVariables& environment) {
    std::vector<FileURL> folders;
    for (const FileURL& shared :
         foldersFrom(environment, "XDG_DATA_DIRS", "/usr/local/share:/usr/share")) {
        if (shared != data) {
            folders.push_back(shared.appending("applications"));
        }
    }
    folders.emplace_back("/var/lib/flatpak/exports/share/applications");
    folders.push_back(data.appending("flatpak/exports/share/applications"));
    folders.emplace_back("/var/lib/snapd/desktop/applications");
    return folders;
}

}

FileURL HostLayout::underHome(const FileURL& url) const {
    if (!homeAlias || !liesWithin(url.path(), *homeAlias)) {
        return url;
    }
    return FileURL(std::string(homeFolders) + url.path().substr(homeAlias->size()));
}

FileURL HostLayout::withoutAlias(const FileURL& url) const {
    if (!homeAlias || !liesWithin(url.path(), homeFolders)) {
        return url;
    }
    return FileURL(*homeAlias + url.path().substr(homeFolders.size()));
}

FileURL HostLayout::asSeenFrom(const FileURL& root, const FileURL& url) const {
    return liesWithin(root.path(), homeFolders) ? underHome(url) : withoutAlias(url);
}

HostLayout HostLayout::darwin(const FileURL& home) {
    const FileURL library = home.appending("Library");
    const FileURL downloads = home.appending("Downloads");
    HostLayout layout;
    layout.locations = {.home = home,
                        .libraryDirectory = library,
                        .systemLibrary = FileURL("/Library"),
                        .downloads = downloads,
                        .userDefaultsFile = library.appending("Preferences/Tolvane.plist"),
                        .homeTrash = home.appending(".Trash"),
                        .purgeableFolder = std::nullopt};
    layout.access.probes = {
        {"TCC.db", FileURL("/Library/Application Support/com.apple.TCC/TCC.db")},
        {"Mail", home.appending("Library/Mail")},
        {"Safari history", home.appending("Library/Safari/History.db")}};
    layout.exclusions.usesMountTable = false;
    layout.applications = {.folders = {"/Applications", "Applications"},
                           .systemFolders = {"/System/Applications"},
                           .systemPrefixes = {"/System"}};
    layout.leftovers = LeftoverTable::darwin();
    layout.junkRoots = {library.appending("Caches"), library.appending("Logs"),
                        library.appending("Developer/Xcode/DerivedData"),
                        library.appending("Application Support/CrashReporter"),
                        layout.locations.homeTrash};
    layout.quickLocations = {{"Home", "house", home},
                             {"Downloads", "arrow.down.circle", downloads},
                             {"Applications", "square.grid.2x2", FileURL("/Applications")},
                             {"Library", "books.vertical", library},
                             {"Macintosh HD", "internaldrive", FileURL("/")}};
    layout.tools = {
        .lsof = FileURL("/usr/sbin/lsof"),
        .processTree = {FileURL("/bin/ps"), {"-axo", "pid=,ppid="}},
        .heavyProcesses = {FileURL("/bin/ps"), {"-axo", "pid=,rss=,%cpu=,comm=", "-m"}}};
    layout.startup.folders = {{"user", StartupFormat::propertyList, "Library/LaunchAgents"},
                              {"system", StartupFormat::propertyList, "/Library/LaunchAgents"},
                              {"daemon", StartupFormat::propertyList, "/Library/LaunchDaemons"}};
    layout.snapshots = SnapshotTools::darwin();
    layout.maintenance = MaintenanceTools::darwin();
    return layout;
}

HostLayout HostLayout::freedesktop(const FileURL& home, const EnvironmentVariables& environment) {
    const FileURL data = folderFrom(environment, "XDG_DATA_HOME", home.appending(".local/share"));
    const FileURL config = folderFrom(environment, "XDG_CONFIG_HOME", home.appending(".config"));
    const FileURL cache = folderFrom(environment, "XDG_CACHE_HOME", home.appending(".cache"));
    const FileURL state = folderFrom(environment, "XDG_STATE_HOME", home.appending(".local/state"));
    const FileURL downloads =
        folderFrom(environment, "XDG_DOWNLOAD_DIR", home.appending("Downloads"));
    HostLayout layout;
    layout.locations = {.home = home,
                        .libraryDirectory = state,
                        .systemLibrary = FileURL("/"),
                        .downloads = downloads,
                        .userDefaultsFile = config.appending("Tolvane/Tolvane.conf"),
                        .homeTrash = data.appending("Trash"),
                        .purgeableFolder = cache};
    layout.access.probes = {{"shadow", FileURL("/etc/shadow")},
                            {"root home", FileURL("/root")},
                            {"sudoers", FileURL("/etc/sudoers")}};
    layout.protection = {
        .additionalPrefixes = {"/boot",        "/efi",      "/lib",      "/lib32",    "/lib64",
                               "/libx32",      "/opt",      "/proc",     "/sys",      "/run/user",
                               "/run/systemd", "/run/lock", "/run/udev", "/run/dbus", "/snap",
                               "/nix",         "/gnu",      "/ostree",   "/sysroot",  "/lost+found",
                               "/.snapshots",  "/swapfile", "/swap.img"},
        .additionalExactPaths = {"/home", "/root", "/media", "/mnt", "/srv", "/tmp", "/run",
                                 "/run/media"}};
    layout.exclusions.usesMountTable = true;
    layout.applications = applicationPlaces(home, data, environment);
    layout.leftovers = LeftoverTable::freedesktop({home, data, config, cache, state},
                                                  launchersOfOthers(data, environment));
    // Of the state only the logs: histories and what a program was about lie there too.
    layout.junkRoots = {cache, state.appending("Logs"), home.appending(".gradle/caches"),
                        FileURL("/var/lib/systemd/coredump"), layout.locations.homeTrash};
    layout.quickLocations = {{"Home", "house", home},
                             {"Downloads", "arrow.down.circle", downloads},
                             {"Applications", "square.grid.2x2", home.appending("Applications")},
                             {"Local Data", "books.vertical", home.appending(".local")},
                             {"File System", "internaldrive", FileURL("/")}};
    layout.tools = {.lsof = FileURL("/usr/bin/lsof"),
                    .processTree = {FileURL("/bin/ps"), {"-e", "-o", "pid=", "-o", "ppid="}},
                    .heavyProcesses = {FileURL("/bin/ps"),
                                       {"-e", "-ww", "-o", "pid=", "-o", "rss=", "-o",
                                        "%cpu=", "-o", "comm=", "--sort=-rss"}},
                    .cutsProcessNames = true};
    layout.startup = startupPlaces(config, environment);
    layout.snapshots = SnapshotTools::freedesktop();
    layout.maintenance = MaintenanceTools::freedesktop(data.appending("applications"));
    layout.sources = {.proc = FileURL("/proc"), .sys = FileURL("/sys"), .dev = FileURL("/dev")};
    return layout;
}

}
