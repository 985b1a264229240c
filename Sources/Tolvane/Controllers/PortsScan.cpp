
#include <PortKit/PortScanner.h>

#include <Controllers/PortsScan.h>

#include <utility>

namespace tolvane::PortsScan {
namespace {

StartTimes startTimes(const std::vector<PortListener>& listeners,
                      const HostLayout::Sources& sources) {
    const Processes processes(sources);
    StartTimes times;
    for (const PortListener& listener : listeners) {
        if (const auto time = processes.startTime(listener.pid)) {
            times.emplace(listener.pid, *time);
        }
    }
    return times;
}

}

Outcome run(const HostLayout& layout, const std::function<bool()>& isCancelled) {
    const PortScanner scanner(layout.tools, layout.sources);
    auto listeners = scanner.scan(isCancelled);
    if (!listeners) {
        return tl::unexpected(std::move(listeners.error()));
    }
    StartTimes times = startTimes(*listeners, layout.sources);
    const std::size_t unseen = scanner.countUnseen(*listeners);
    return Result{std::move(*listeners), std::move(times), unseen};
}

}
