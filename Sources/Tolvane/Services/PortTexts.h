#pragma once

#include <HostKit/Processes.h>
#include <PortKit/PortKillSignal.h>
#include <PortKit/PortListener.h>

#include <cstddef>
#include <string>
#include <string_view>

/// What all front ends say of listeners. Holds names' bytes as they are: what shows it makes text
/// of them.
namespace tolvane::PortTexts {

/// "SIGTERM" or "SIGKILL".
std::string_view name(PortKillSignal signal);

/// "node (PID 42) is listening on port 80."
std::string listening(const PortListener& listener);

/// "Sent SIGTERM to node (PID 42)".
std::string sent(const PortListener& listener, PortKillSignal signal);

/// How many listening sockets are not shown, and why; empty for none.
std::string notShown(std::size_t count, Processes::Sight sight);

}
