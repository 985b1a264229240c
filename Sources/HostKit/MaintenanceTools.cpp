#include <HostKit/MaintenanceTools.h>

namespace tolvane {
namespace {

/// The two names that the indexer of GNOME has had. It deletes an index only while it does not run,
/// so it ends, and nothing starts it again before the next log-in.
ContentIndex ofGNOME(const FileURL& mark, const FileURL& command) {
    return {.mark = mark,
            .reset = {command, {"reset", "--filesystem"}},
            .start = Tool{command, {"daemon", "--start"}}};
}

/// The same of KDE, which ends the indexer and starts it again by itself.
ContentIndex ofKDE(const FileURL& command) {
    return {.mark = command, .reset = {command, {"purge"}}};
}

}

MaintenanceTools MaintenanceTools::darwin() {
    return {
        .prompt = {AdministratorPrompt::Kind::appleScript, {FileURL("/usr/bin/osascript"), {"-e"}}},
        .flushResolver = {FileURL("/usr/bin/dscacheutil"), {"-flushcache"}},
        .rebuildRegistry = {FileURL("/System/Library/Frameworks/CoreServices.framework/"
                                    "Versions/A/Frameworks/LaunchServices.framework/"
                                    "Versions/A/Support/lsregister"),
                            {"-f", "-r", "-domain", "local", "-domain", "user"}},
        .purge = {FileURL("/usr/sbin/purge"), {}}};
}

MaintenanceTools MaintenanceTools::freedesktop(const FileURL& launchers) {
    return {
        .prompt = {AdministratorPrompt::Kind::polkit,
                   // Its own prompt would take over the terminal.
                   {FileURL("/usr/bin/pkexec"), {"--disable-internal-agent"}}},
        .flushResolver = {FileURL("/usr/bin/resolvectl"), {"flush-caches"}},
        .rebuildRegistry = {FileURL("/usr/bin/update-desktop-database"), {launchers.path()}},
        .registryFolder = launchers,
        .indexes = {ofGNOME(FileURL("/usr/bin/localsearch"), FileURL("/usr/bin/localsearch")),
                    // The command is there without the indexer, whose packages add to it.
                    ofGNOME(FileURL("/usr/libexec/tracker3/reset"), FileURL("/usr/bin/tracker3")),
                    ofKDE(FileURL("/usr/bin/balooctl6")), ofKDE(FileURL("/usr/bin/balooctl"))},
        .beforePurge = Tool{FileURL("/usr/bin/sync"), {}},
        // 1: only the contents of files.
        .purge = {FileURL("/usr/sbin/sysctl"), {"-q", "-w", "vm.drop_caches=1"}}};
}

}
