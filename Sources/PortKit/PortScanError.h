#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// Why the listeners could not be told.
struct PortScanError {
    enum class Case : std::uint8_t { lsofMissing, lsofFailed, systemError };

    Case kind;
    /// Only of `lsofFailed`.
    std::int32_t status = 0;
    /// The path that was tried, or what the tool or the system said; may be empty.
    std::string text;

    static PortScanError lsofMissing(std::string path);
    static PortScanError lsofFailed(std::int32_t status, std::string message);
    /// The tool could not be started, or its run was cancelled: the system's words for it.
    static PortScanError systemError(std::string message);

    /// For people. Holds the path's bytes as they are: what shows it makes text of them.
    std::string description() const;

    friend bool operator==(const PortScanError&, const PortScanError&) = default;
};

}
