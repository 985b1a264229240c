#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace tolvane {

/// A state of a volume that the system keeps on the volume itself.
struct LocalSnapshot {
    /// When it was made, local time: "2024-03-01-101500".
    std::string date;
    /// Where the volume is mounted.
    std::string volume;
    /// Whether the system may delete it when it needs the space.
    std::optional<bool> purgeable;

    /// The volume, "-" and the date.
    std::string id() const;

    friend bool operator==(const LocalSnapshot&, const LocalSnapshot&) = default;
};

}

template <>
struct std::hash<tolvane::LocalSnapshot> {
    std::size_t operator()(const tolvane::LocalSnapshot& snapshot) const;
};
