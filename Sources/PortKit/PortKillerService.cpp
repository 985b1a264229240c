#include <HostKit/ChildProcess.h>
#include <HostKit/Lines.h>
#include <HostKit/Number.h>
#include <PortKit/PortKillerService.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <set>
#include <unordered_map>
#include <utility>

namespace tolvane {
namespace {

using Children = std::unordered_map<std::int32_t, std::vector<std::int32_t>>;

/// Below it are the system's first process and what the system takes for groups.
constexpr std::int32_t firstOrdinary = 2;

/// The numbers among the words of a line.
std::vector<std::int32_t> numbers(std::string_view line) {
    std::vector<std::int32_t> found;
    for (std::string_view word = takeWord(line); !word.empty(); word = takeWord(line)) {
        if (const auto number = wholeNumber<std::int32_t>(word)) {
            found.push_back(*number);
        }
    }
    return found;
}

Children childrenByParent(std::string_view text) {
    Children children;
    while (!text.empty()) {
        const std::vector<std::int32_t> pair = numbers(takeLine(text));
        if (pair.size() == 2) {
            children[pair[1]].push_back(pair[0]);
        }
    }
    return children;
}

PortKillError killError(const SystemError& error, std::int32_t pid) {
    switch (error.code) {
    case EPERM:
        return PortKillError::permissionDenied(pid);
    case ESRCH:
        return PortKillError::processGone(pid);
    default:
        return PortKillError::failed(pid, error.message());
    }
}

Result<void, PortKillError> signalOne(std::int32_t pid, PortKillSignal signal,
                                      std::int32_t currentPID) {
    if (pid < firstOrdinary || pid == currentPID) {
        return tl::unexpected(PortKillError::protectedProcess(pid));
    }
    return Processes::signal(pid, signal == PortKillSignal::force ? SIGKILL : SIGTERM)
        .map_error([&](const SystemError& error) { return killError(error, pid); });
}

}

PortKillerService::PortKillerService(const HostLayout::Tools& tools,
                                     const HostLayout::Sources& sources)
    : lister_(tools.processTree)
    , processes_(sources) {}

Result<void, PortKillError>
PortKillerService::kill(const PortListener& listener, PortKillSignal signal, bool includeChildren,
                        std::int32_t currentPID, std::optional<StartTime> startTime,
                        const std::function<bool()>& isCancelled,
                        const std::function<void(std::int32_t)>& onSignalled) const {
    // Before the tree is: everything descends from the first process.
    if (listener.pid < firstOrdinary) {
        return tl::unexpected(PortKillError::protectedProcess(listener.pid));
    }
    const std::vector<std::int32_t> targets =
        includeChildren ? processTree(listener.pid, isCancelled) : std::vector{listener.pid};
    if (isCancelled && isCancelled()) {
        return tl::unexpected(killError(SystemError::cancelled(), listener.pid));
    }
    // Behind the list, which takes a while: so the tree, too, is that of the process that is meant.
    if (startTime && processes_.startTime(listener.pid) != startTime) {
        return tl::unexpected(PortKillError::processGone(listener.pid));
    }
    for (const std::int32_t pid : targets) {
        if (Result<void, PortKillError> sent = signalOne(pid, signal, currentPID); !sent) {
            return sent;
        }
        if (onSignalled) {
            onSignalled(pid);
        }
    }
    return {};
}

std::vector<std::int32_t>
PortKillerService::processTree(std::int32_t root, const std::function<bool()>& isCancelled) const {
    const ToolResult list =
        run({.tool = lister_, .pipes = Pipes::readWhileRunning, .isCancelled = isCancelled});
    // What a list that could not be made holds is nothing.
    return processTree(root, list.output);
}

std::vector<std::int32_t> PortKillerService::processTree(std::int32_t root, std::string_view text) {
    struct Visit {
        std::int32_t pid;
        std::size_t nextChild = 0;
    };
    const Children children = childrenByParent(text);
    const std::vector<std::int32_t> none;
    std::vector<std::int32_t> order;
    std::set<std::int32_t> seen{root};
    // Not recursive: a made-up list may be deeper than any stack.
    std::vector<Visit> path{{root}};
    while (!path.empty()) {
        Visit& visit = path.back();
        const auto found = children.find(visit.pid);
        const std::vector<std::int32_t>& below = found == children.end() ? none : found->second;
        if (visit.nextChild == below.size()) {
            order.push_back(visit.pid);
            path.pop_back();
            continue;
        }
        const std::int32_t child = below[visit.nextChild++];
        if (seen.insert(child).second) {
            path.push_back({child});
        }
    }
    return order;
}

}
