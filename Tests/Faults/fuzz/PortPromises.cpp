#include "Promises.h"

#include <PortKit/PortKillerService.h>
#include <PortKit/PortScanner.h>

#include <algorithm>
#include <set>

namespace tolvane {
namespace {

std::string brokenListenerPromise(const PortListener& listener, std::string_view bytes) {
    if (!std::is_sorted(listener.addresses.begin(), listener.addresses.end())) {
        return "addresses are in order";
    }
    if (!listener.listensOn(listener.port)) {
        return "a listener listens on its port";
    }
    for (const std::string& address : listener.addresses) {
        if (bytes.find("n" + address) == std::string_view::npos) {
            return "nothing is made up";
        }
    }
    return "";
}

}

std::string brokenListenersPromise(std::string_view bytes) {
    int asked = 0;
    const std::vector<PortListener> listeners =
        PortScanner::merge(PortScanner::parse(bytes), [&](std::int32_t) {
            ++asked;
            return std::nullopt;
        });
    std::set<std::string> ids;
    for (const PortListener& listener : listeners) {
        ids.insert(listener.id());
        if (std::string broken = brokenListenerPromise(listener, bytes); !broken.empty()) {
            return broken;
        }
    }
    if (ids.size() != listeners.size() || asked != static_cast<int>(ids.size())) {
        return "each process, port and protocol is listed once";
    }
    const auto isBefore = [](const PortListener& a, const PortListener& b) {
        return a.port < b.port;
    };
    return std::is_sorted(listeners.begin(), listeners.end(), isBefore) ? "" : "ports are in order";
}

std::string brokenProcessTreePromise(std::string_view bytes) {
    for (const std::int32_t root : {2, 0, -1}) {
        const std::vector<std::int32_t> tree = PortKillerService::processTree(root, bytes);
        if (tree.back() != root) {
            return "the root is signalled last";
        }
        if (std::set(tree.begin(), tree.end()).size() != tree.size()) {
            return "each process is signalled once";
        }
        // What a process of the tree stands for on its own is part of the tree.
        for (const std::int32_t below : PortKillerService::processTree(tree.front(), bytes)) {
            if (std::find(tree.begin(), tree.end(), below) == tree.end()) {
                return "a descendant's descendants are descendants";
            }
        }
    }
    return "";
}

}
