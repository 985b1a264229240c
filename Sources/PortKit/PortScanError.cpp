#include <PortKit/PortScanError.h>

#include <utility>

namespace tolvane {

PortScanError PortScanError::lsofMissing(std::string path) {
    return {Case::lsofMissing, 0, std::move(path)};
}

PortScanError PortScanError::lsofFailed(std::int32_t status, std::string message) {
    return {Case::lsofFailed, status, std::move(message)};
}

PortScanError PortScanError::systemError(std::string message) {
    return {Case::systemError, 0, std::move(message)};
}

std::string PortScanError::description() const {
    switch (kind) {
    case Case::lsofMissing:
        return "lsof not found at " + text;
    case Case::lsofFailed:
        return text.empty() ? "lsof exited with status " + std::to_string(status)
                            : "lsof failed: " + text;
    case Case::systemError:
        return text;
    }
    return {};
}

}
