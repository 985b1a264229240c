#pragma once

#include <HostKit/Date.h>
#include <HostKit/Result.h>
#include <HostKit/Tool.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tolvane {

/// When the two streams that a tool writes are read.
enum class Pipes : std::uint8_t {
    /// Both as they come, so that a tool may write any amount to either.
    readWhileRunning,
    /// Once the tool has ended. One that writes more than a pipe holds never does.
    readAfterExit,
    /// The same, but only what stands in them by then: for a tool that leaves a program running
    /// which keeps them open.
    takeAfterExit
};

/// One run of a tool.
struct ToolRun {
    Tool tool;
    Pipes pipes = Pipes::readWhileRunning;
    /// Absent: the run takes as long as the tool, and as whoever else holds its streams.
    std::optional<Seconds> timeout = std::nullopt;
    /// Asked about twenty times a second.
    std::function<bool()> isCancelled = {};
};

/// How a run ended. Both texts are UTF-8, U+FFFD in place of bytes that are not.
struct ToolResult {
    static constexpr std::int32_t notStarted = -1;
    static constexpr std::int32_t timedOut = -2;
    static constexpr std::int32_t cancelled = -3;

    /// The exit status, 128 and the signal's number when a signal ended the tool, or one of the
    /// values above.
    std::int32_t status = notStarted;
    /// What it wrote to standard output; empty unless it ended by itself.
    std::string output;
    /// What it wrote to standard error, without white space around it; for the values above the
    /// reason.
    std::string message;
};

/// Runs the tool and waits for its end, with this process's standard input, none of its other
/// descriptors, no signal held back, and the locale C.UTF-8, in which tools speak plain English and
/// leave names alone. A tool that is not done in time is asked to end (SIGTERM) and left to itself;
/// one whose run is cancelled is made to. Neither stays behind as a zombie. Callable from any
/// thread; blocks it.
ToolResult run(const ToolRun& run);

/// Starts a program that outlives this one, in the user's own locale. One that is named without a
/// path is looked for where the user's programs are (PATH).
Result<void, SystemError> launchDetached(const Tool& tool);

/// Whether an executable file is there.
bool isExecutableFile(const FileURL& url);

}
