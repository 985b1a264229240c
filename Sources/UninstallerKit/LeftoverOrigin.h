#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

/// How sure it is that a leftover belongs to the application it was found for.
struct LeftoverOrigin {
    enum class Certainty : std::uint8_t {
        /// It bears one of the application's identifiers where applications put what bears theirs.
        exact,
        /// Its name only begins with one, or has one in it.
        byName
    };

    Certainty certainty = Certainty::byName;
    /// Names of other installed applications for which the same item would be found.
    std::vector<std::string> otherApps;

    friend bool operator==(const LeftoverOrigin&, const LeftoverOrigin&) = default;
};

}
