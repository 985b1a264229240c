#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

/// What a service of systemd starts (systemd.syntax(7), systemd.service(5)).
struct UnitFile {
    /// Longer files are none.
    static constexpr std::size_t largestSize = 256 * 1024;

    /// A path or a bare name; absent when it starts nothing itself.
    std::optional<std::string> program;

    /// Absent when the text has no section or holds a NUL.
    static std::optional<UnitFile> parse(std::string_view text);

    friend bool operator==(const UnitFile&, const UnitFile&) = default;
};

}
