#pragma once

#include <PortKit/PortListener.h>

#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Which listeners match what somebody looks for: a part of the port, the process's name, its
/// number, an address or the executable's path, in capitals or not.
class PortsFilter {
  public:
    /// Spaces and tabs around the query do not count; an empty one matches everything.
    explicit PortsFilter(std::string_view query);

    bool matches(const PortListener& listener) const;
    /// Those that match, in their order.
    std::vector<PortListener> filtered(const std::vector<PortListener>& listeners) const;

  private:
    std::string needle_;
};

}
