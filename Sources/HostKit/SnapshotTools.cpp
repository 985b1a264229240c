#include <HostKit/MaintenanceTools.h>
#include <HostKit/SnapshotTools.h>

namespace tolvane {
namespace {

SnapshotVolume ofTimeMachine(const std::string& volume) {
    return {.volume = volume,
            .list = {FileURL(std::string(MaintenanceTools::timeMachineTool)),
                     {"listlocalsnapshots", volume}},
            .listPurgeable =
                Tool{FileURL("/usr/sbin/diskutil"), {"apfs", "listSnapshots", volume}}};
}

SnapshotVolume ofSnapper(const std::string& volume, const std::string& configuration) {
    const FileURL snapper("/usr/bin/snapper");
    return {.volume = volume,
            .list = {snapper,
                     {"--csvout", "-c", configuration, "list", "--columns", "number,date,cleanup"}},
            .thin = Tool{snapper, {"-c", configuration, "cleanup", "all"}}};
}

}

SnapshotTools SnapshotTools::darwin() {
    return {.format = SnapshotFormat::timeMachine,
            .system = ofTimeMachine("/"),
            .data = ofTimeMachine("/System/Volumes/Data")};
}

SnapshotTools SnapshotTools::freedesktop() {
    return {.format = SnapshotFormat::snapper,
            .system = ofSnapper("/", "root"),
            .data = ofSnapper("/home", "home")};
}

}
