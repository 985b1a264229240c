/// Prints what a look at the listening processes costs beyond the run of lsof itself, with a
/// hundred processes of ten listeners each, and what it takes to read 10,000 records. Goals: 10 %
/// and 20 ms.

#include <HostKit/HostLayout.h>
#include <PortKit/PortScanner.h>

#include <fcntl.h>
#include <fmt/format.h>
#include <netinet/in.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace tolvane {
namespace {

constexpr int rounds = 21;

double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// As a server would be: waits with its listeners open.
[[noreturn]] void listen(int listeners, int report) {
    for (int count = 0; count < listeners; ++count) {
        const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (::bind(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0 ||
            ::listen(socket, 1) != 0) {
            ::_exit(1);
        }
    }
    if (::write(report, "x", 1) == 1) {
        ::pause();
    }
    ::_exit(0);
}

std::vector<pid_t> makeServers(int count, int listeners) {
    int report[2];
    if (::pipe(report) != 0) {
        std::exit(1);
    }
    std::vector<pid_t> servers;
    for (int made = 0; made < count; ++made) {
        const pid_t pid = ::fork();
        if (pid == 0) {
            listen(listeners, report[1]);
        }
        servers.push_back(pid);
        char ready = 0;
        if (::read(report[0], &ready, 1) != 1) {
            std::exit(1);
        }
    }
    ::close(report[0]);
    ::close(report[1]);
    return servers;
}

/// lsof with nothing around it but the reading of what it prints.
void runBare(const std::string& lsof) {
    int ends[2];
    if (::pipe(ends) != 0) {
        std::exit(1);
    }
    std::vector<std::string> words{lsof, "-nP", "-iTCP", "-sTCP:LISTEN", "-FpcnP"};
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    pid_t child = 0;
    const int failure =
        ::posix_spawn(&child, lsof.c_str(), &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        std::exit(1);
    }
    ::close(ends[1]);
    char buffer[65'536];
    while (::read(ends[0], buffer, sizeof buffer) > 0) {
    }
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (status != 0) {
        fmt::print(stderr, "lsof failed with status {}\n", status);
        std::exit(1);
    }
}

std::size_t look(const HostLayout& layout) {
    const PortScanner scanner(layout.tools, layout.sources);
    const auto listeners = scanner.scan();
    if (!listeners) {
        fmt::print(stderr, "{}\n", listeners.error().description());
        std::exit(1);
    }
    scanner.countUnseen(*listeners);
    return listeners->size();
}

void measureLook() {
    const HostLayout layout = HostLayout::current();
    const std::vector<pid_t> servers = makeServers(100, 10);
    std::vector<double> bare;
    std::vector<double> ours;
    std::size_t found = 0;
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(milliseconds([&] { runBare(layout.tools.lsof.path()); }));
        ours.push_back(milliseconds([&] { found = look(layout); }));
    }
    for (const pid_t server : servers) {
        ::kill(server, SIGKILL);
        ::waitpid(server, nullptr, 0);
    }
    const double ratio = median(ours) / median(bare);
    fmt::print("a look at {} processes: {:.1f} ms, lsof alone {:.1f} ms, {:+.1f} %\n", found,
               median(ours), median(bare), (ratio - 1) * 100);
}

void measureParsing() {
    std::string text;
    for (int pid = 1; pid <= 10'000; ++pid) {
        text += fmt::format("p{}\ncserver {}\nf3\nPTCP\nn*:{}\nf4\nPTCP\nn[::1]:{}\n", pid,
                            pid % 100, 1 + pid % 5000, 1 + pid % 5000);
    }
    std::vector<double> parsing;
    std::vector<double> merging;
    for (int round = 0; round < rounds; ++round) {
        std::vector<PortScanner::RawRecord> records;
        parsing.push_back(milliseconds([&] { records = PortScanner::parse(text); }));
        merging.push_back(milliseconds(
            [&] { PortScanner::merge(records, [](std::int32_t) { return std::nullopt; }); }));
    }
    fmt::print("10,000 records: read in {:.1f} ms, merged and sorted in {:.1f} ms\n",
               median(parsing), median(merging));
}

}
}

int main() {
    tolvane::measureLook();
    tolvane::measureParsing();
}
