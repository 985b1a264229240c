#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// A process and a port on which it accepts TCP connections. One that listens on several ports is
/// listed once, under the first, with all its addresses.
struct PortListener {
    std::int32_t pid = 0;
    /// "unknown" when there is none.
    std::string processName;
    /// As bytes; absent where the system does not tell.
    std::optional<std::string> executablePath;
    std::int64_t port = 0;
    /// Each with its port ("*:8080", "[::1]:631"), in ascending order of their bytes.
    std::vector<std::string> addresses;
    std::string protocolName;

    PortListener() = default;
    /// Takes the addresses in any order.
    PortListener(std::int32_t processID, std::string name, std::optional<std::string> path,
                 std::int64_t number, std::vector<std::string> names, std::string protocol);

    /// What tells it from other listeners: "4242-8080-TCP".
    std::string id() const;
    /// All addresses in one line.
    std::string addressSummary() const;
    /// Whether one of its addresses has this port.
    bool listensOn(std::int64_t number) const;
    /// Whether it listens on every address of the machine, so that other machines may reach it.
    bool isReachableFromNetwork() const;

    friend bool operator==(const PortListener&, const PortListener&) = default;
};

/// The port of an address, which follows its last ":"; absent when no number stands there.
std::optional<std::int64_t> portOf(std::string_view address);

}

template <>
struct std::hash<tolvane::PortListener> {
    std::size_t operator()(const tolvane::PortListener& listener) const;
};
