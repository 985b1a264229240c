#pragma once

#include <HostKit/Checked.h>

#include <string>

namespace tolvane {

/// How full a volume is; sizes in bytes.
struct VolumeStats {
    /// Its label, else the last component of the place asked for; "/" for the root. Bytes as they
    /// are.
    std::string name;
    Bytes total = 0;
    /// What this user may still write.
    Bytes available = 0;
    /// That, and what the system would delete for something important; 0 where there is no such
    /// figure.
    Bytes importantAvailable = 0;
    /// What may be written without making anything scarce; 0 where there is no such figure.
    Bytes opportunisticAvailable = 0;

    /// Of 1; 0 when there is no total.
    double usedFraction() const;

    friend bool operator==(const VolumeStats&, const VolumeStats&) = default;
};

}
