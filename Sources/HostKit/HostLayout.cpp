#include <HostKit/HostLayout.h>

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
                        .downloads = downloads,
                        .userDefaultsFile = library.appending("Preferences/Tolvane.plist"),
                        .homeTrash = home.appending(".Trash"),
                        .purgeableFolder = std::nullopt};
    layout.access.probes = {
        {"TCC.db", FileURL("/Library/Application Support/com.apple.TCC/TCC.db")},
        {"Mail", home.appending("Library/Mail")},
        {"Safari history", home.appending("Library/Safari/History.db")}};
    layout.exclusions.usesMountTable = false;
    layout.quickLocations = {{"Home", "house", home},
                             {"Downloads", "arrow.down.circle", downloads},
                             {"Applications", "square.grid.2x2", FileURL("/Applications")},
                             {"Library", "books.vertical", library},
                             {"Macintosh HD", "internaldrive", FileURL("/")}};
    layout.tools = {.lsof = FileURL("/usr/sbin/lsof"),
                    .processTree = {FileURL("/bin/ps"), {"-axo", "pid=,ppid="}}};
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
    layout.quickLocations = {{"Home", "house", home},
                             {"Downloads", "arrow.down.circle", downloads},
                             {"Applications", "square.grid.2x2", home.appending("Applications")},
                             {"Local Data", "books.vertical", home.appending(".local")},
                             {"File System", "internaldrive", FileURL("/")}};
    layout.tools = {.lsof = FileURL("/usr/bin/lsof"),
                    .processTree = {FileURL("/bin/ps"), {"-e", "-o", "pid=", "-o", "ppid="}}};
    layout.sources = {.proc = FileURL("/proc"), .sys = FileURL("/sys")};
    return layout;
}

}
