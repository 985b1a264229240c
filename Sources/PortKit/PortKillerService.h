#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/Processes.h>
#include <HostKit/Result.h>
#include <PortKit/PortKillError.h>
#include <PortKit/PortKillSignal.h>
#include <PortKit/PortListener.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace tolvane {

/// Signals the processes behind listeners. Keeps nothing between calls; callable from any thread.
class PortKillerService {
  public:
    PortKillerService(const HostLayout::Tools& tools, const HostLayout::Sources& sources);

    /// Signals the listener's process, with `includeChildren` all its descendants before it. The
    /// first failure ends it: what has been signalled stays so. Processes below 2 and `currentPID`,
    /// which is this process, are never signalled, nor anything below a root that is one of the
    /// first. `startTime` is when the process started that was listed: when another has its number
    /// by now, or none, nothing is signalled either; absent, whoever has it is meant. `onSignalled`
    /// hears of every process that was. Blocks while the processes are listed.
    Result<void, PortKillError>
    kill(const PortListener& listener, PortKillSignal signal, bool includeChildren,
         std::int32_t currentPID, std::optional<StartTime> startTime = std::nullopt,
         const std::function<bool()>& isCancelled = {},
         const std::function<void(std::int32_t pid)>& onSignalled = {}) const;

    /// `root` and all its descendants as they are to be signalled: children before their parents,
    /// `root` last. Just `root` when the processes cannot be listed.
    std::vector<std::int32_t> processTree(std::int32_t root,
                                          const std::function<bool()>& isCancelled = {}) const;
    /// The same from what the tool printed: lines of a pid and its parent's; other lines are
    /// ignored. Each process is named once, whatever the lines say.
    static std::vector<std::int32_t> processTree(std::int32_t root, std::string_view text);

  private:
    Tool lister_;
    Processes processes_;
};

}
