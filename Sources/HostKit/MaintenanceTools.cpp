#include <HostKit/MaintenanceTools.h>

namespace tolvane {

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
    return {.prompt = {AdministratorPrompt::Kind::polkit,
                       // Its own prompt would take over the terminal.
                       {FileURL("/usr/bin/pkexec"), {"--disable-internal-agent"}}},
            .flushResolver = {FileURL("/usr/bin/resolvectl"), {"flush-caches"}},
            .rebuildRegistry = {FileURL("/usr/bin/update-desktop-database"), {launchers.path()}},
            .registryFolder = launchers,
            .reindex = {{FileURL("/usr/bin/localsearch"), {"reset", "--filesystem"}},
                        {FileURL("/usr/bin/tracker3"), {"reset", "--filesystem"}},
                        {FileURL("/usr/bin/balooctl6"), {"purge"}}},
            .beforePurge = Tool{FileURL("/usr/bin/sync"), {}},
            // 1: only the contents of files.
            .purge = {FileURL("/usr/sbin/sysctl"), {"-q", "-w", "vm.drop_caches=1"}}};
}

}
