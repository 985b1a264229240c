#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/ProcessSampler.h>
#include <PerformanceKit/VolumeSampler.h>

#include <Controllers/PerformanceSampling.h>

#include <utility>

namespace tolvane::PerformanceSampling {

Figures figures(const HostLayout::Sources& sources) {
    return {MemorySampler::sample(sources), VolumeSampler::sample(FileURL("/"), sources)};
}

std::vector<ListedProcess> processes(const HostLayout& layout,
                                     const std::function<bool()>& isCancelled) {
    const Processes system(layout.sources);
    std::vector<ListedProcess> listed;
    for (HeavyProcess& process :
         ProcessSampler::top(listedProcesses, layout.tools, layout.sources, isCancelled)) {
        const std::optional<StartTime> startTime = system.startTime(process.pid);
        listed.push_back({std::move(process), startTime});
    }
    return listed;
}

}
