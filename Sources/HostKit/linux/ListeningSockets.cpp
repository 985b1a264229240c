#include <HostKit/ListeningSockets.h>
#include <HostKit/Number.h>

#include <dirent.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>

namespace tolvane {
namespace {

using SocketNumber = std::uint64_t;

/// Adds the numbers of the listening sockets in a table of the kernel (proc(5), "net/tcp"). They
/// come first, so that the connections of a busy server need not be read.
void addListening(const FileURL& table, std::set<SocketNumber>& numbers) {
    constexpr std::string_view listening = "0A";
    std::ifstream file(table.path());
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        std::string skipped;
        std::string state;
        std::string number;
        fields >> skipped >> skipped >> skipped >> state;
        if (state != listening) {
            return;
        }
        fields >> skipped >> skipped >> skipped >> skipped >> skipped >> number;
        if (const auto parsed = wholeNumber<SocketNumber>(number)) {
            numbers.insert(*parsed);
        }
    }
}

/// The number in "socket:[4711]", which is what a descriptor of a socket leads to.
std::optional<SocketNumber> socketNumber(std::string_view target) {
    constexpr std::string_view start = "socket:[";
    if (!target.starts_with(start) || !target.ends_with(']')) {
        return std::nullopt;
    }
    return wholeNumber<SocketNumber>(target.substr(start.size(), target.size() - start.size() - 1));
}

void removeHeld(const FileURL& process, std::set<SocketNumber>& numbers) {
    const std::string path = process.appending("fd").path();
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(path.c_str()), &::closedir);
    while (folder && !numbers.empty()) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): each call has a stream of its own.
        const dirent* const entry = ::readdir(folder.get());
        if (entry == nullptr) {
            return;
        }
        std::array<char, 64> target{};
        const ssize_t length =
            ::readlinkat(::dirfd(folder.get()), entry->d_name, target.data(), target.size());
        if (length > 0) {
            if (const auto number =
                    socketNumber({target.data(), static_cast<std::size_t>(length)})) {
                numbers.erase(*number);
            }
        }
    }
}

}

std::size_t countListeningSocketsBeyond(const std::vector<std::int32_t>& pids,
                                        const HostLayout::Sources& sources) {
    std::set<SocketNumber> numbers;
    addListening(sources.proc.appending("net/tcp"), numbers);
    addListening(sources.proc.appending("net/tcp6"), numbers);
    for (const std::int32_t pid : std::set(pids.begin(), pids.end())) {
        if (numbers.empty()) {
            break;
        }
        removeHeld(sources.proc.appending(std::to_string(pid)), numbers);
    }
    return numbers.size();
}

}
