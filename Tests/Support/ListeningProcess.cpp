#include <Support/ListeningProcess.h>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <thread>

namespace tolvane {
namespace {

int listeningSocket(const std::string& address, std::int64_t& port) {
    sockaddr_storage place{};
    auto* const four = reinterpret_cast<sockaddr_in*>(&place);
    auto* const six = reinterpret_cast<sockaddr_in6*>(&place);
    const bool isSix = address.find(':') != std::string::npos;
    place.ss_family = isSix ? AF_INET6 : AF_INET;
    EXPECT_EQ(isSix ? ::inet_pton(AF_INET6, address.c_str(), &six->sin6_addr)
                    : ::inet_pton(AF_INET, address.c_str(), &four->sin_addr),
              1);
    socklen_t size = isSix ? sizeof *six : sizeof *four;
    const int socket = ::socket(place.ss_family, SOCK_STREAM, 0);
    auto* const generic = reinterpret_cast<sockaddr*>(&place);
    EXPECT_EQ(::bind(socket, generic, size), 0) << address;
    EXPECT_EQ(::listen(socket, 1), 0) << address;
    ::getsockname(socket, generic, &size);
    port = ntohs(isSix ? six->sin6_port : four->sin_port);
    return socket;
}

/// Tells its number and makes the next of the chain, which does the same.
[[noreturn]] void live(int report, const std::string& name, std::size_t processes) {
    if (!name.empty()) {
        ::prctl(PR_SET_NAME, name.c_str());
    }
    bool isTold = false;
    do {
        // So that a test that crashes leaves nothing behind for long.
        ::alarm(90);
        const std::int32_t pid = ::getpid();
        isTold = ::write(report, &pid, sizeof pid) == sizeof pid;
    } while (isTold && --processes > 0 && ::fork() == 0);
    while (true) {
        ::pause();
    }
}

/// Whether the process is neither gone nor waits to be asked for its end.
bool runs(std::int32_t pid) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
    const std::string stat{std::istreambuf_iterator<char>(file), {}};
    const std::size_t nameEnd = stat.rfind(") ");
    return nameEnd != std::string::npos && stat[nameEnd + 2] != 'Z';
}

}

ListeningProcess::ListeningProcess(const std::vector<std::string>& addresses,
                                   const std::string& name, std::size_t processes)
    : ports_(addresses.size()) {
    // Those whose parents end become children of the test.
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    std::vector<int> sockets;
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        sockets.push_back(listeningSocket(addresses[i], ports_[i]));
    }
    int report[2];
    EXPECT_EQ(::pipe(report), 0);
    if (::fork() == 0) {
        live(report[1], name, processes);
    }
    std::for_each(sockets.begin(), sockets.end(), &::close);
    std::int32_t pid = 0;
    while (pids_.size() < processes && ::read(report[0], &pid, sizeof pid) == sizeof pid) {
        pids_.push_back(pid);
    }
    ::close(report[0]);
    ::close(report[1]);
}

ListeningProcess::~ListeningProcess() {
    for (const std::int32_t pid : pids_) {
        ::kill(pid, SIGKILL);
    }
    awaitEnd();
}

std::vector<std::int32_t> ListeningProcess::running() const {
    std::vector<std::int32_t> pids = pids_;
    std::erase_if(pids, [](std::int32_t pid) { return !runs(pid); });
    return pids;
}

bool ListeningProcess::endsSoon(std::int32_t pid) {
    constexpr int watchdog = 1000;
    for (int count = 0; count < watchdog && runs(pid); ++count) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return !runs(pid);
}

std::vector<int> ListeningProcess::awaitEnd() {
    std::vector<int> signals;
    for (const std::int32_t pid : pids_) {
        int status = 0;
        ::waitpid(pid, &status, 0);
        signals.push_back(WIFSIGNALED(status) ? WTERMSIG(status) : 0);
    }
    pids_.clear();
    return signals;
}

}
