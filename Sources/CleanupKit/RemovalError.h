#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// Why an item was not removed or not put back.
struct RemovalError {
    enum class Case : std::uint8_t {
        protectedPath,
        outsideScanRoot,
        isScanRoot,
        missing,
        trashFailed,
        restoreFailed
    };

    Case kind;
    std::string path;
    /// Only of the cases that end in "Failed"; empty otherwise.
    std::string reason;

    static RemovalError protectedPath(std::string path);
    static RemovalError outsideScanRoot(std::string path);
    static RemovalError isScanRoot(std::string path);
    static RemovalError missing(std::string path);
    static RemovalError trashFailed(std::string path, std::string reason);
    static RemovalError restoreFailed(std::string path, std::string reason);

    /// For people. Holds the path's bytes as they are: what shows it makes text of them.
    std::string description() const;

    friend bool operator==(const RemovalError&, const RemovalError&) = default;
};

}
