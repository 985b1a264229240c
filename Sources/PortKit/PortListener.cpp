#include <HostKit/Number.h>
#include <PortKit/PortListener.h>

#include <algorithm>
#include <utility>

namespace tolvane {

PortListener::PortListener(std::int32_t processID, std::string name,
                           std::optional<std::string> path, std::int64_t number,
                           std::vector<std::string> names, std::string protocol)
    : pid(processID)
    , processName(std::move(name))
    , executablePath(std::move(path))
    , port(number)
    , addresses(std::move(names))
    , protocolName(std::move(protocol)) {
    std::sort(addresses.begin(), addresses.end());
}

std::string PortListener::id() const {
    return std::to_string(pid) + "-" + std::to_string(port) + "-" + protocolName;
}

std::string PortListener::addressSummary() const {
    std::string summary;
    for (const std::string& address : addresses) {
        summary += (summary.empty() ? "" : ", ") + address;
    }
    return summary;
}

bool PortListener::listensOn(std::int64_t number) const {
    return std::any_of(addresses.begin(), addresses.end(),
                       [&](const std::string& address) { return portOf(address) == number; });
}

bool PortListener::isReachableFromNetwork() const {
    return std::any_of(addresses.begin(), addresses.end(), [](const std::string& address) {
        return address.starts_with("*:") || address.starts_with("0.0.0.0:") ||
               address.starts_with("[::]:");
    });
}

std::optional<std::int64_t> portOf(std::string_view address) {
    const std::size_t separator = address.rfind(':');
    return separator == std::string_view::npos
               ? std::nullopt
               : wholeNumber<std::int64_t>(address.substr(separator + 1));
}

}

std::size_t
std::hash<tolvane::PortListener>::operator()(const tolvane::PortListener& listener) const {
    std::size_t value = std::hash<std::int32_t>{}(listener.pid);
    const auto add = [&](std::size_t part) { value = value * 31 + part; };
    const std::hash<std::string> ofText;
    add(ofText(listener.processName));
    add(std::hash<std::optional<std::string>>{}(listener.executablePath));
    add(std::hash<std::int64_t>{}(listener.port));
    for (const std::string& address : listener.addresses) {
        add(ofText(address));
    }
    add(ofText(listener.protocolName));
    return value;
}
