#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>

#include <optional>

namespace tolvane {

/// How much fits on a volume.
struct VolumeCapacity {
    Bytes total = 0;
    /// What this user may still write.
    Bytes available = 0;

    friend bool operator==(const VolumeCapacity&, const VolumeCapacity&) = default;
};

/// The counters that this machine keeps of itself. Callable from any thread.
class Machine {
  public:
    /// Of the volume that `url` lies on, links followed; absent when the system does not tell or
    /// tells what cannot be. May wait for a server, so never to be called on the main thread.
    static std::optional<VolumeCapacity> volume(const FileURL& url);
};

}
