#include <ScanKit/FullDiskAccess.h>

#include <cerrno>
#include <vector>

namespace tolvane {
namespace {

std::string joined(const std::vector<std::string>& list) {
    std::string text;
    for (const std::string& entry : list) {
        text += text.empty() ? "" : ", ";
        text += entry;
    }
    return text;
}

}

std::string FullDiskAccessStatus::guidance() const {
    if (granted) {
        return detail;
    }
    return detail + " Grant it in System Settings > Privacy & Security > Full Disk Access, then "
                    "Recheck or Relaunch.";
}

FullDiskAccessStatus FullDiskAccess::status(const HostLayout::Access& access,
                                            const FileManager& files) {
    std::vector<std::string> refused;
    std::vector<std::string> missing;
    std::vector<std::string> others;
    for (const HostLayout::AccessProbe& probe : access.probes) {
        const Result<void, SystemError> opened = files.probeReading(probe.url);
        if (opened) {
            return {.granted = true,
                    .confirmed = true,
                    .detail = probe.label + " is readable, so Full Disk Access is granted."};
        }
        const int code = opened.error().code;
        if (code == EPERM || code == EACCES) {
            refused.push_back(probe.label + ": Operation not permitted");
        } else if (code == ENOENT) {
            missing.push_back(probe.label);
        } else {
            others.push_back(probe.label + ": " + opened.error().message());
        }
    }
    if (!refused.empty()) {
        return {.granted = false,
                .confirmed = true,
                .detail = "Full Disk Access is not granted (" + joined(refused) + ")."};
    }
    missing.insert(missing.end(), others.begin(), others.end());
    return {.granted = false,
            .confirmed = false,
            .detail = "Could not confirm Full Disk Access (probes unavailable: " + joined(missing) +
                      ")."};
}

}
