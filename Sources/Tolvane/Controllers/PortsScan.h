#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/Processes.h>
#include <HostKit/Result.h>
#include <PortKit/PortListener.h>
#include <PortKit/PortScanError.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace tolvane {

/// When each process started, so that a later one of the same number is not taken for it.
using StartTimes = std::map<std::int32_t, StartTime>;

/// What a refresh of the ports screen does on a worker.
namespace PortsScan {

struct Result {
    std::vector<PortListener> listeners;
    StartTimes startTimes;
    /// Sockets that listen and belong to none of the listed processes.
    std::size_t unseenSockets = 0;
};
using Outcome = tolvane::Result<Result, PortScanError>;

/// Blocks until lsof has ended, or `isCancelled`.
Outcome run(const HostLayout& layout, const std::function<bool()>& isCancelled);

}
}
