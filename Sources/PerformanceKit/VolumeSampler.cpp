#include <PerformanceKit/VolumeSampler.h>

#include <string_view>

namespace tolvane {

std::optional<VolumeStats> VolumeSampler::sample(const FileURL& url,
                                                 const HostLayout::Sources& sources) {
    const std::optional<VolumeCapacity> capacity = Machine::volume(url);
    return capacity ? std::optional(stats(url, *capacity, Machine::volumeName(url, sources)))
                    : std::nullopt;
}

VolumeStats VolumeSampler::stats(const FileURL& url, const VolumeCapacity& capacity,
                                 const std::optional<std::string>& label) {
    const std::string_view last = url.lastPathComponent();
    return {.name = label.value_or(std::string(last.empty() ? url.path() : last)),
            .total = capacity.total,
            .available = capacity.available.value_or(capacity.total),
            .importantAvailable = capacity.importantAvailable.value_or(0),
            .opportunisticAvailable = capacity.opportunisticAvailable.value_or(0)};
}

}
