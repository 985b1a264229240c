#include <HostKit/ChildProcess.h>
#include <HostKit/Lines.h>
#include <HostKit/Machine.h>
#include <HostKit/Text.h>
#include <PerformanceKit/MaintenanceService.h>
#include <PerformanceKit/SnapperTable.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>

namespace tolvane {
namespace {

/// What is said of a run; the status stands behind `exited`.
struct Words {
    std::string success;
    std::string exited;
};

/// A tool that fills a pipe is waited for until its time is over: those used here say little.
ToolResult runTool(const Tool& tool, Seconds timeout, const std::function<bool()>& isCancelled) {
    return run({.tool = tool,
                .pipes = Pipes::readAfterExit,
                .timeout = timeout,
                .isCancelled = isCancelled});
}

MaintenanceOutcome outcome(const ToolResult& result, const Words& words) {
    if (result.status == 0) {
        return MaintenanceOutcome::success(words.success);
    }
    return MaintenanceOutcome::failure(
        result.message.empty() ? words.exited + std::to_string(result.status) : result.message);
}

MaintenanceOutcome administratorOutcome(const ToolResult& result, const Words& words) {
    const bool isCancelled = lowercased(result.message).find("cancel") != std::string::npos;
    return result.status != 0 && isCancelled ? MaintenanceOutcome::failure("Canceled by the user.")
                                             : outcome(result, words);
}

Tool behindPrompt(const AdministratorPrompt& prompt, const std::string& script) {
    Tool tool = prompt.tool;
    tool.arguments.push_back(script);
    return tool;
}

Tool behindPrompt(const AdministratorPrompt& prompt, const Tool& command) {
    Tool tool = prompt.tool;
    tool.arguments.push_back(command.executable.path());
    tool.arguments.insert(tool.arguments.end(), command.arguments.begin(), command.arguments.end());
    return tool;
}

std::string shellCommand(const Tool& tool) {
    std::string command = tool.executable.path();
    for (const std::string& argument : tool.arguments) {
        command += " " + argument;
    }
    return command;
}

/// Runs a command as an administrator: `shellForm` where the prompt takes a script, else `tool`.
ToolResult runAsAdministrator(const AdministratorPrompt& prompt, const std::string& shellForm,
                              const Tool& tool, Seconds timeout,
                              const std::function<bool()>& isCancelled) {
    constexpr std::int32_t refused = 126;
    if (prompt.kind == AdministratorPrompt::Kind::appleScript) {
        const std::string script = MaintenanceService::administratorScript(shellForm);
        return runTool(behindPrompt(prompt, script), timeout, isCancelled);
    }
    ToolResult result = runTool(behindPrompt(prompt, tool), timeout, isCancelled);
    if (result.status == refused) {
        result.message = "User canceled.";
    }
    return result;
}

/// The first index that is there; where none is, the first, whose tool then tells so.
const ContentIndex& firstInstalled(const std::vector<ContentIndex>& indexes) {
    const auto found = std::find_if(indexes.begin(), indexes.end(), [](const ContentIndex& index) {
        return isExecutableFile(index.mark);
    });
    return found == indexes.end() ? indexes.front() : *found;
}

ToolResult startOver(const ContentIndex& index, Seconds timeout,
                     const std::function<bool()>& isCancelled) {
    ToolResult result = run({.tool = index.reset,
                             .pipes = Pipes::takeAfterExit,
                             .timeout = timeout,
                             .isCancelled = isCancelled});
    return result.status == 0 && index.start ? runTool(*index.start, timeout, isCancelled) : result;
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

}

MaintenanceService::MaintenanceService(const HostLayout& layout,
                                       std::shared_ptr<const FileManager> files)
    : tools_(layout.maintenance)
    , snapshots_(layout.snapshots)
    , sources_(layout.sources)
    , processes_(layout.sources)
    , files_(std::move(files)) {}

MaintenanceOutcome MaintenanceService::flushDNS(const StopTest& isCancelled) const {
    return outcome(runTool(tools_.flushResolver, 20, isCancelled),
                   {"Flushed the user DNS cache. System-wide mDNSResponder flush requires "
                    "administrator rights.",
                    "dscacheutil exited with "});
}

MaintenanceOutcome MaintenanceService::rebuildLaunchServices(const StopTest& isCancelled) const {
    if (!isExecutableFile(tools_.rebuildRegistry.executable)) {
        return MaintenanceOutcome::failure("lsregister not found");
    }
    if (tools_.registryFolder) {
        // Where that fails the tool tells that the folder is missing.
        static_cast<void>(files_->createDirectories(*tools_.registryFolder));
    }
    return outcome(
        runTool(tools_.rebuildRegistry, 90, isCancelled),
        {"Rebuilt the Launch Services database for this user.", "lsregister exited with "});
}

std::vector<std::string> MaintenanceService::localSnapshots(const StopTest& isCancelled) const {
    const ToolResult result = runTool(snapshots_.system.list, 20, isCancelled);
    if (result.status != 0) {
        return {};
    }
    const std::string text = snapshots_.format == SnapshotFormat::snapper
                                 ? SnapperTable::names(result.output)
                                 : result.output;
    std::vector<std::string> names;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::string_view line = takeLine(rest);
        if (line.find("com.apple.TimeMachine") != std::string_view::npos) {
            names.emplace_back(line);
        }
    }
    return names;
}

MaintenanceOutcome MaintenanceService::thinLocalSnapshots(const std::string& volume,
                                                          Bytes targetBytes, std::int32_t urgency,
                                                          const StopTest& isCancelled) const {
    const SnapshotVolume& place =
        volume == snapshots_.data.volume ? snapshots_.data : snapshots_.system;
    if (place.thin && place.volume != volume) {
        return MaintenanceOutcome::failure("No snapshots are kept of " + displayText(volume));
    }
    const ToolResult result =
        runAsAdministrator(tools_.prompt, thinSnapshotsCommand(volume, targetBytes, urgency),
                           place.thin.value_or(Tool()), 180, isCancelled);
    return administratorOutcome(
        result, {"Requested Time Machine to thin local snapshots on " + displayText(volume) + ".",
                 "tmutil exited with "});
}

MaintenanceOutcome MaintenanceService::reindexSpotlight(const std::string& volume,
                                                        const StopTest& isCancelled) const {
    constexpr Seconds timeout = 120;
    const ToolResult result =
        tools_.indexes.empty()
            ? runAsAdministrator(tools_.prompt, spotlightCommand(volume), {}, timeout, isCancelled)
            : startOver(firstInstalled(tools_.indexes), timeout, isCancelled);
    return administratorOutcome(result,
                                {"Spotlight index rebuild started for " + displayText(volume) +
                                     ". This can take several minutes.",
                                 "mdutil exited with "});
}

MaintenanceOutcome MaintenanceService::freeRAMWithAdministrator(const StopTest& isCancelled) const {
    constexpr Seconds timeout = 90;
    if (tools_.beforePurge) {
        runTool(*tools_.beforePurge, timeout, isCancelled);
    }
    const ToolResult result = runAsAdministrator(tools_.prompt, shellCommand(tools_.purge),
                                                 tools_.purge, timeout, isCancelled);
    return administratorOutcome(result, {"Kernel disk buffers purged.", "purge exited with "});
}

MaintenanceOutcome MaintenanceService::terminate(std::int32_t pid, std::int32_t currentPID,
                                                 std::optional<StartTime> startTime) const {
    /// Below it are the system's first process and what the system takes for groups.
    constexpr std::int32_t firstOrdinary = 2;
    const std::string number = std::to_string(pid);
    if (pid < firstOrdinary || pid == currentPID) {
        return MaintenanceOutcome::failure("Refusing to signal protected process " + number);
    }
    const bool isAnother = startTime && processes_.startTime(pid) != startTime;
    const Result<void, SystemError> sent =
        isAnother ? tl::unexpected(SystemError{ESRCH}) : Processes::signal(pid, SIGTERM);
    if (sent) {
        return MaintenanceOutcome::success("Sent SIGTERM to process " + number);
    }
    switch (sent.error().code) {
    case ESRCH:
        return MaintenanceOutcome::failure("Process " + number + " is no longer running");
    case EPERM:
        return MaintenanceOutcome::failure("Not permitted to signal process " + number);
    default:
        return MaintenanceOutcome::failure(sent.error().message());
    }
}

Bytes MaintenanceService::releaseApplicationMemory() const {
    return Machine::releaseAllocatorPages(sources_);
}

std::string MaintenanceService::spotlightCommand(std::string_view volume) {
    return std::string(MaintenanceTools::spotlightTool) + " -E " + quoted(volume);
}

std::string MaintenanceService::thinSnapshotsCommand(std::string_view volume, Bytes targetBytes,
                                                     std::int32_t urgency) {
    return std::string(MaintenanceTools::timeMachineTool) + " thinlocalsnapshots " +
           quoted(volume) + " " + std::to_string(std::max<Bytes>(targetBytes, 0)) + " " +
           std::to_string(urgency);
}

std::string MaintenanceService::administratorScript(std::string_view command) {
    std::string escaped;
    for (const char letter : command) {
        if (letter == '\\' || letter == '"') {
            escaped += '\\';
        }
        escaped += letter;
    }
    return "do shell script " + quoted(escaped) + " with administrator privileges";
}

}
