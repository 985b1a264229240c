#include <HostKit/linux/Contents.h>
#include <HostKit/linux/Mounts.h>

#include <utility>
#include <vector>

namespace tolvane {
namespace {

bool readsOne(const FileURL& url) {
    const Result<std::string, SystemError> flag = readFile(url);
    return flag && flag->starts_with('1');
}

/// The flag belongs to the whole disk; a partition's folder lies in that of its disk.
bool isRemovable(const Mount& mount, const FileURL& sys) {
    const bool hasBlockDevice = mount.major != 0;
    if (!hasBlockDevice) {
        return false;
    }
    const std::string number = std::to_string(mount.major) + ":" + std::to_string(mount.minor);
    const FileURL device = sys.appending("dev/block").appending(number);
    return readsOne(device.appending("removable")) || readsOne(device.appending("../removable"));
}

}

MountTable readMounts(const HostLayout::Sources& sources) {
    const Result<std::string, SystemError> text =
        readFile(sources.proc.appending("self/mountinfo"));
    if (!text) {
        return MountTable({}, false);
    }
    std::vector<Mount> mounts = MountTable::parse(*text).mounts();
    for (Mount& mount : mounts) {
        mount.isRemovable = isRemovable(mount, sources.sys);
    }
    return MountTable(std::move(mounts));
}

}
