#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tolvane {

/// How much fits on a volume.
struct VolumeCapacity {
    Bytes total = 0;
    /// What this user may still write; absent where there is no such figure, as the next two.
    std::optional<Bytes> available = std::nullopt;
    /// For the two classes of use that some systems tell apart.
    std::optional<Bytes> importantAvailable = std::nullopt;
    std::optional<Bytes> opportunisticAvailable = std::nullopt;

    friend bool operator==(const VolumeCapacity&, const VolumeCapacity&) = default;
};

/// The system's memory as it counts it.
struct MemoryCounters {
    /// The bytes that each count below stands for: those of a page or of a kibibyte.
    Bytes unit = 0;
    /// All there is, in bytes.
    Bytes total = 0;

    std::int64_t free = 0;
    std::int64_t active = 0;
    std::int64_t inactive = 0;
    std::int64_t wired = 0;
    std::int64_t compressed = 0;
    std::int64_t purgeable = 0;
    std::int64_t speculative = 0;

    /// In bytes; 0 without swap.
    Bytes swapTotal = 0;
    Bytes swapUsed = 0;
    /// 1, 2 (warning) or 4 (critical); 1 where the system does not tell.
    std::int32_t pressureLevel = 1;
};

/// What this machine has, and the counters that it keeps of itself. Callable from any thread.
class Machine {
  public:
    /// Absent when the system does not tell.
    static std::optional<MemoryCounters> memory(const HostLayout::Sources& sources);
    /// Of the volume that `url` lies on, links followed; absent when the system does not tell or
    /// tells what cannot be. May wait for a server, so never to be called on the main thread.
    static std::optional<VolumeCapacity> volume(const FileURL& url);
    /// The label of that volume, as bytes; absent when it has none. May wait as well.
    static std::optional<std::string> volumeName(const FileURL& url,
                                                 const HostLayout::Sources& sources);
    /// Gives memory that the allocator holds free back to the system, as much as possible; returns
    /// by how many bytes this process became smaller.
    static Bytes releaseAllocatorPages(const HostLayout::Sources& sources);
    /// Whether there is a graphics processor that this user may draw with.
    static bool hasGraphicsProcessor(const HostLayout::Sources& sources);
};

}
