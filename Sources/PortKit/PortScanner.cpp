#include <HostKit/ChildProcess.h>
#include <HostKit/Collation.h>
#include <HostKit/Lines.h>
#include <HostKit/ListeningSockets.h>
#include <HostKit/Number.h>
#include <HostKit/Processes.h>
#include <PortKit/PortScanner.h>

#include <algorithm>
#include <compare>
#include <map>
#include <set>
#include <utility>

namespace tolvane {
namespace {

struct Key {
    std::int32_t pid;
    std::int64_t port;
    std::string protocolName;

    friend auto operator<=>(const Key&, const Key&) = default;
};

struct Entry {
    std::string command;
    std::set<std::string> addresses;
    std::optional<std::string> path;
};

/// Without lsof's warnings, each with the indented line that explains it: they tell of file systems
/// it could not look into and come with a status that then means nothing.
std::string withoutWarnings(std::string_view message) {
    std::string rest;
    bool isWarning = false;
    while (!message.empty()) {
        const std::string_view line = takeLine(message);
        const bool isExplanation = isWarning && (line.starts_with(' ') || line.starts_with('\t'));
        isWarning = line.starts_with("lsof: WARNING:");
        const bool isBlank = line.find_first_not_of(" \t\r") == std::string_view::npos;
        if (!isWarning && !isExplanation && !isBlank) {
            rest += (rest.empty() ? "" : "\n") + std::string(line);
        }
    }
    return rest;
}

void sort(std::vector<PortListener>& listeners) {
    const Collation collation;
    std::stable_sort(
        listeners.begin(), listeners.end(), [&](const PortListener& a, const PortListener& b) {
            return a.port != b.port ? a.port < b.port
                                    : collation.compare(a.processName, b.processName) < 0;
        });
}

}

std::optional<std::int64_t> PortScanner::RawRecord::port() const {
    for (const std::string& address : addresses) {
        if (const std::optional<std::int64_t> number = portOf(address)) {
            return number;
        }
    }
    return std::nullopt;
}

PortScanner::PortScanner(const HostLayout::Tools& tools, HostLayout::Sources sources)
    : lsof_(tools.lsof)
    , sources_(std::move(sources)) {}

Result<std::vector<PortListener>, PortScanError>
PortScanner::scan(const std::function<bool()>& isCancelled) const {
    if (!isExecutableFile(lsof_)) {
        return tl::unexpected(PortScanError::lsofMissing(lsof_.path()));
    }
    const ToolResult result = run({.tool = {lsof_, {"-nP", "-iTCP", "-sTCP:LISTEN", "-FpcnP"}},
                                   .pipes = Pipes::readWhileRunning,
                                   .isCancelled = isCancelled});
    if (result.status == 0) {
        return merge(parse(result.output),
                     [this](std::int32_t pid) { return executablePath(pid, sources_); });
    }
    if (result.status < 0) {
        return tl::unexpected(PortScanError::systemError(result.message));
    }
    std::string message = withoutWarnings(result.message);
    if (result.status == 1 && message.empty()) {
        return std::vector<PortListener>();
    }
    return tl::unexpected(PortScanError::lsofFailed(result.status, std::move(message)));
}

std::size_t PortScanner::countUnseen(const std::vector<PortListener>& listeners) const {
    std::set<std::string_view> seen;
    for (const PortListener& listener : listeners) {
        seen.insert(listener.addresses.begin(), listener.addresses.end());
    }
    const std::vector<std::string> all = ListeningSockets::addresses(sources_);
    return static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(),
                      [&](const std::string& address) { return !seen.contains(address); }));
}

std::optional<std::string> PortScanner::executablePath(std::int32_t pid,
                                                       const HostLayout::Sources& sources) {
    return Processes(sources).executablePath(pid);
}

std::vector<PortScanner::RawRecord> PortScanner::parse(std::string_view text) {
    std::vector<RawRecord> records;
    RawRecord current;
    const auto finish = [&] {
        if (current.pid && current.port()) {
            records.push_back(std::move(current));
        }
        current = {};
    };
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const std::string_view value = line.substr(std::min<std::size_t>(line.size(), 1));
        switch (line.empty() ? '\0' : line.front()) {
        case 'p':
            finish();
            current.pid = wholeNumber<std::int32_t>(value);
            break;
        case 'c':
            current.command = value;
            break;
        case 'P':
            current.protocolName = value;
            break;
        case 'n':
            current.addresses.emplace_back(value);
            break;
        default:
            break;
        }
    }
    finish();
    return records;
}

std::vector<PortListener> PortScanner::merge(const std::vector<RawRecord>& records,
                                             const PathOfProcess& executablePath) {
    std::map<Key, Entry> table;
    for (const RawRecord& record : records) {
        const std::optional<std::int64_t> port = record.port();
        if (!record.pid || !port) {
            continue;
        }
        const auto [place, isNew] =
            table.try_emplace({*record.pid, *port, record.protocolName.value_or("TCP")});
        Entry& entry = place->second;
        if (isNew) {
            entry.command = record.command.value_or("unknown");
            entry.path = executablePath(*record.pid);
        } else if (record.command && !record.command->empty()) {
            entry.command = *record.command;
        }
        entry.addresses.insert(record.addresses.begin(), record.addresses.end());
    }
    std::vector<PortListener> listeners;
    listeners.reserve(table.size());
    for (auto& [key, entry] : table) {
        listeners.emplace_back(
            key.pid, std::move(entry.command), std::move(entry.path), key.port,
            std::vector<std::string>(entry.addresses.begin(), entry.addresses.end()),
            key.protocolName);
    }
    sort(listeners);
    return listeners;
}

}
