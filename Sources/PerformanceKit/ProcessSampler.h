#pragma once

#include <HostKit/HostLayout.h>
#include <PerformanceKit/HeavyProcess.h>

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace tolvane {

/// Lists the processes that take the most memory. Callable from any thread.
namespace ProcessSampler {

/// At most `limit` of them, the heaviest first; none when the processes cannot be listed. Blocks
/// while "ps" runs; there is no time-out, but `isCancelled` ends it.
std::vector<HeavyProcess> top(std::size_t limit, const HostLayout::Tools& tools,
                              const HostLayout::Sources& sources,
                              const std::function<bool()>& isCancelled = {});

/// The same from what "ps" printed: lines of a pid, kibibytes of memory, percents of a processor
/// and a name, which may hold blanks. Other lines are dropped; equally heavy ones keep their order.
std::vector<HeavyProcess> parse(std::string_view text, std::size_t limit);

}

}
