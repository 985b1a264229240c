#include <HostKit/Number.h>
#include <HostKit/Processes.h>
#include <HostKit/linux/Contents.h>

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tolvane {
namespace {

FileURL folderOf(std::int32_t pid, const HostLayout::Sources& sources) {
    return sources.proc.appending(std::to_string(pid));
}

/// The field with this number, from 1, of a "stat" file (proc(5)); the second, a name in brackets,
/// may hold anything.
std::string_view fieldOf(std::string_view stat, int number) {
    const std::size_t nameEnd = stat.rfind(')');
    stat.remove_prefix(std::min(nameEnd, stat.size()));
    for (int field = 2; field < number; ++field) {
        stat.remove_prefix(std::min(stat.find(' '), stat.size()));
        stat.remove_prefix(std::min<std::size_t>(stat.size(), 1));
    }
    return stat.substr(0, stat.find(' '));
}

}

Processes::Processes(HostLayout::Sources sources)
    : sources_(std::move(sources)) {}

std::optional<std::string> Processes::executablePath(std::int32_t pid) const {
    constexpr std::string_view deleted = " (deleted)";
    std::array<char, 4096> path{};
    const std::string link = folderOf(pid, sources_).appending("exe").path();
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length < 1) {
        return std::nullopt;
    }
    std::string_view bytes(path.data(), static_cast<std::size_t>(length));
    if (bytes.ends_with(deleted)) {
        bytes.remove_suffix(deleted.size());
    }
    return std::string(bytes);
}

std::vector<std::string> Processes::executablePaths() const {
    std::vector<std::string> paths;
    std::error_code error;
    std::filesystem::directory_iterator entry(sources_.proc.path(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const auto pid = wholeNumber<std::int32_t>(entry->path().filename().native());
        std::optional<std::string> path = pid ? executablePath(*pid) : std::nullopt;
        if (path) {
            paths.push_back(std::move(*path));
        }
    }
    return paths;
}

std::optional<StartTime> Processes::startTime(std::int32_t pid) const {
    constexpr int startTimeField = 22;
    constexpr std::size_t longestStat = 4096;
    const Result<std::string, SystemError> stat =
        readFile(folderOf(pid, sources_).appending("stat"), longestStat);
    return stat ? wholeNumber<StartTime>(fieldOf(*stat, startTimeField)) : std::nullopt;
}

Processes::Sight Processes::sight() {
    return ::geteuid() == 0 ? Sight::all : Sight::own;
}

Result<void, SystemError> Processes::signal(std::int32_t pid, int number) {
    if (pid < 1) {
        return tl::unexpected(SystemError{EINVAL});
    }
    if (::kill(pid, number) != 0) {
        return tl::unexpected(SystemError::last());
    }
    return {};
}

}
