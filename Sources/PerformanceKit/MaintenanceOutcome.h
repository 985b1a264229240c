#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// How a maintenance action ended.
struct MaintenanceOutcome {
    enum class Case : std::uint8_t { success, failure };

    Case kind = Case::failure;
    /// For people. What a tool said stands in it as it said it, bad bytes as U+FFFD.
    std::string message;

    static MaintenanceOutcome success(std::string message);
    static MaintenanceOutcome failure(std::string message);

    bool isSuccess() const { return kind == Case::success; }

    friend bool operator==(const MaintenanceOutcome&, const MaintenanceOutcome&) = default;
};

}
