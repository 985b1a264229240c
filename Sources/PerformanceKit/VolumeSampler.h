#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>
#include <HostKit/Machine.h>
#include <PerformanceKit/VolumeStats.h>

#include <optional>
#include <string>

namespace tolvane {

/// Reads how full volumes are. Callable from any thread.
namespace VolumeSampler {

/// Of the volume that holds `url`; absent when the system does not tell. A volume of another
/// machine may keep this waiting.
std::optional<VolumeStats> sample(const FileURL& url, const HostLayout::Sources& sources);

/// The same from what the system told, its label when it has one.
VolumeStats stats(const FileURL& url, const VolumeCapacity& capacity,
                  const std::optional<std::string>& label);

}

}
