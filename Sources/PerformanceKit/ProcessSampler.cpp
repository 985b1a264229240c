#include <HostKit/ChildProcess.h>
#include <HostKit/Lines.h>
#include <HostKit/Number.h>
#include <HostKit/Processes.h>
#include <PerformanceKit/ProcessSampler.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tolvane {
namespace {

/// Takes what stands before the next single blank off the line, blanks before it left out.
std::string_view takePiece(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    const std::string_view piece = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(piece.size() + 1, line.size()));
    return piece;
}

std::optional<HeavyProcess> processIn(std::string_view line) {
    constexpr Bytes kibibyte = 1024;
    line = trimmed(line);
    const auto pid = wholeNumber<std::int32_t>(takePiece(line));
    const auto kibibytes = wholeNumber<std::int64_t>(takePiece(line));
    const auto percent = decimalNumber(takePiece(line));
    Bytes size = 0;
    if (!pid || !kibibytes || !percent || line.empty() ||
        __builtin_mul_overflow(*kibibytes, kibibyte, &size)) {
        return std::nullopt;
    }
    return HeavyProcess{*pid, std::string(line), size, *percent};
}

}

std::vector<HeavyProcess> ProcessSampler::top(std::size_t limit, const HostLayout::Tools& tools,
                                              const HostLayout::Sources& sources,
                                              const std::function<bool()>& isCancelled) {
    const ToolResult list = run({.tool = tools.heavyProcesses,
                                 .pipes = Pipes::readWhileRunning,
                                 .isCancelled = isCancelled});
    std::vector<HeavyProcess> processes = parse(list.output, limit);
    if (tools.cutsProcessNames) {
        const Processes system(sources);
        for (HeavyProcess& process : processes) {
            process.name = system.executablePath(process.pid).value_or(process.name);
        }
    }
    return processes;
}

std::vector<HeavyProcess> ProcessSampler::parse(std::string_view text, std::size_t limit) {
    std::vector<HeavyProcess> processes;
    while (!text.empty()) {
        if (std::optional<HeavyProcess> process = processIn(takeLine(text))) {
            processes.push_back(std::move(*process));
        }
    }
    std::stable_sort(
        processes.begin(), processes.end(),
        [](const HeavyProcess& a, const HeavyProcess& b) { return a.rssBytes > b.rssBytes; });
    processes.resize(std::min(limit, processes.size()));
    return processes;
}

}
