#include <Services/CountFormat.h>
#include <Services/PortTexts.h>

namespace tolvane::PortTexts {
namespace {

std::string process(const PortListener& listener) {
    return listener.processName + " (PID " + std::to_string(listener.pid) + ")";
}

}

std::string_view name(PortKillSignal signal) {
    return signal == PortKillSignal::force ? "SIGKILL" : "SIGTERM";
}

std::string listening(const PortListener& listener) {
    return process(listener) + " is listening on port " + std::to_string(listener.port) + ".";
}

std::string sent(const PortListener& listener, PortKillSignal signal) {
    return "Sent " + std::string(name(signal)) + " to " + process(listener);
}

std::string notShown(std::size_t count, Processes::Sight sight) {
    if (count == 0) {
        return "";
    }
    return CountFormat::counted(static_cast<std::int64_t>(count), "more listening socket") +
           (count == 1 ? " belongs" : " belong") +
           (sight == Processes::Sight::all
                ? " to the system itself or to processes that it keeps apart."
                : " to other users or to the system, whose processes you may not look into.");
}

}
