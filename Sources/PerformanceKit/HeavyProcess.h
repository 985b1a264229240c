#pragma once

#include <HostKit/Checked.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace tolvane {

/// A process and what it takes of the machine.
struct HeavyProcess {
    std::int32_t pid = 0;
    /// Its program: a path where one is known, else a short name. Bytes as they are.
    std::string name;
    /// Memory that it really occupies.
    Bytes rssBytes = 0;
    /// 100 is one processor core.
    double cpuPercent = 0;

    /// The last component of the name.
    std::string displayName() const;

    friend bool operator==(const HeavyProcess&, const HeavyProcess&) = default;
};

}

template <>
struct std::hash<tolvane::HeavyProcess> {
    std::size_t operator()(const tolvane::HeavyProcess& process) const;
};
