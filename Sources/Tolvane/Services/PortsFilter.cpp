#include <HostKit/Text.h>
#include <Services/PortsFilter.h>

#include <algorithm>
#include <iterator>

namespace tolvane {
namespace {

/// Without blanks at both ends; line breaks are part of what is looked for.
std::string_view withoutBlanks(std::string_view text) {
    constexpr const char* blanks = " \t";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

}

PortsFilter::PortsFilter(std::string_view query)
    : needle_(lowercased(withoutBlanks(query))) {}

bool PortsFilter::matches(const PortListener& listener) const {
    const auto isIn = [this](const std::string& text) {
        return text.find(needle_) != std::string::npos;
    };
    return needle_.empty() || isIn(std::to_string(listener.port)) ||
           isIn(lowercased(listener.processName)) || isIn(std::to_string(listener.pid)) ||
           isIn(lowercased(listener.addressSummary())) ||
           (listener.executablePath && isIn(lowercased(*listener.executablePath)));
}

std::vector<PortListener> PortsFilter::filtered(const std::vector<PortListener>& listeners) const {
    std::vector<PortListener> matching;
    std::copy_if(listeners.begin(), listeners.end(), std::back_inserter(matching),
                 [this](const PortListener& listener) { return matches(listener); });
    return matching;
}

}
