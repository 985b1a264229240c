#pragma once

#include <HostKit/Checked.h>

#include <cstdint>
#include <string>

namespace tolvane {

/// How the machine's memory was used at one moment; sizes in bytes.
struct MemoryStats {
    Bytes total = 0;
    Bytes free = 0;
    Bytes active = 0;
    Bytes inactive = 0;
    Bytes wired = 0;
    Bytes compressed = 0;
    Bytes purgeable = 0;
    Bytes speculative = 0;
    /// 0 without swap.
    Bytes swapTotal = 0;
    Bytes swapUsed = 0;
    /// 1, 2 (memory is short) or 4 (programs wait for it); 1 where the system does not tell.
    std::int32_t pressureLevel = 1;

    /// What programs can have without another giving up any.
    Bytes available() const;
    /// All but that; never negative.
    Bytes used() const;
    /// Of 1; 0 when there is no total.
    double usedFraction() const;
    /// "Normal", "Warning" or "Critical".
    std::string pressureLabel() const;

    friend bool operator==(const MemoryStats&, const MemoryStats&) = default;
};

}
