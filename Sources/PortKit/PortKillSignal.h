#pragma once

#include <cstdint>

namespace tolvane {

/// How a process is told to end.
enum class PortKillSignal : std::uint8_t {
    /// SIGTERM, which a process may refuse.
    terminate,
    /// SIGKILL, which none can.
    force
};

}
