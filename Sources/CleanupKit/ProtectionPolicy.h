#pragma once

#include <HostKit/HostLayout.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// The places that are never offered for removal and never moved to the Trash.
struct ProtectionPolicy {
    static constexpr std::array<std::string_view, 15> defaultPrefixes = {
        "/System",          "/usr",        "/bin",          "/sbin", "/etc",   "/var",
        "/private",         "/Library",    "/Applications", "/dev",  "/cores", "/Network",
        "/.Spotlight-V100", "/.fseventsd", "/.Trashes"};
    static constexpr std::array<std::string_view, 3> defaultExactPaths = {"/", "/Users",
                                                                          "/Users/Shared"};

    /// Absolute paths without a trailing separator; each is protected with all that lies below it.
    std::vector<std::string> protectedPrefixes;
    /// Absolute paths that are protected themselves, while what lies below them is not.
    std::vector<std::string> protectedExactPaths;

    /// An absent list is the default one with what `protection` adds to it; a given list stands
    /// alone.
    ProtectionPolicy(std::optional<std::vector<std::string>> prefixes,
                     std::optional<std::vector<std::string>> exactPaths,
                     const HostLayout::Protection& protection);
    /// Both default lists with what `protection` adds to them.
    explicit ProtectionPolicy(const HostLayout::Protection& protection);

    /// Whether the standardised path of `url` is protected. Case counts, canonically equivalent
    /// texts are the same, symbolic links are taken at face value.
    bool isProtected(const FileURL& url) const;
};

}
