#pragma once

#include <HostKit/HostLayout.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tolvane {

/// How many TCP sockets listen on this machine that none of these processes holds, by the system's
/// own table; 0 where it keeps none. A user who may not look into other processes learns from it
/// how much stays unseen.
std::size_t countListeningSocketsBeyond(const std::vector<std::int32_t>& pids,
                                        const HostLayout::Sources& sources);

}
