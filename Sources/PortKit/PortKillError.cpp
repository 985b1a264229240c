#include <PortKit/PortKillError.h>

#include <utility>

namespace tolvane {

PortKillError PortKillError::protectedProcess(std::int32_t pid) {
    return {Case::protectedProcess, pid, {}};
}

PortKillError PortKillError::processGone(std::int32_t pid) {
    return {Case::processGone, pid, {}};
}

PortKillError PortKillError::permissionDenied(std::int32_t pid) {
    return {Case::permissionDenied, pid, {}};
}

PortKillError PortKillError::failed(std::int32_t pid, std::string message) {
    return {Case::failed, pid, std::move(message)};
}

std::string PortKillError::description() const {
    const std::string number = std::to_string(pid);
    switch (kind) {
    case Case::protectedProcess:
        return "Refusing to signal protected process " + number;
    case Case::processGone:
        return "Process " + number + " is no longer running";
    case Case::permissionDenied:
        return "Not permitted to signal process " + number + " (try running as its owner)";
    case Case::failed:
        return "Could not signal process " + number + ": " + message;
    }
    return {};
}

}
