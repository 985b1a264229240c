#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// Why a process was not signalled.
struct PortKillError {
    enum class Case : std::uint8_t { protectedProcess, processGone, permissionDenied, failed };

    Case kind;
    std::int32_t pid;
    /// Only of `failed`.
    std::string message;

    static PortKillError protectedProcess(std::int32_t pid);
    static PortKillError processGone(std::int32_t pid);
    static PortKillError permissionDenied(std::int32_t pid);
    static PortKillError failed(std::int32_t pid, std::string message);

    /// For people.
    std::string description() const;

    friend bool operator==(const PortKillError&, const PortKillError&) = default;
};

}
