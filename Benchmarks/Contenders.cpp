#include "Contenders.h"

#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace tolvane {
namespace {

double cpuSeconds(const rusage& usage) {
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

bool isInstalled(const std::string& program) {
    const char* variable = std::getenv("PATH");
    std::istringstream folders(variable == nullptr ? "" : variable);
    for (std::string folder; std::getline(folders, folder, ':');) {
        folder.append("/").append(program);
        if (::access(folder.c_str(), X_OK) == 0) {
            return true;
        }
    }
    return false;
}

}

Cost inOwnProcess(const std::function<void()>& work) {
    using Clock = std::chrono::steady_clock;
    std::fflush(nullptr);
    const Clock::time_point start = Clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        std::fflush(nullptr);
        ::_exit(0);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> wall = Clock::now() - start;
    if (status != 0) {
        fmt::print(stderr, "a measured process failed with status {}\n", status);
        std::exit(1);
    }
    return {cpuSeconds(usage), wall.count(), usage.ru_maxrss};
}

std::vector<Cost> measure(const std::vector<Contender>& contenders, int rounds,
                          const std::function<void()>& prepare) {
    std::vector<Cost> best(contenders.size(), Cost{1e9, 1e9, 0});
    for (int round = 0; round <= rounds; ++round) {
        for (std::size_t index = 0; index < contenders.size(); ++index) {
            if (prepare) {
                prepare();
            }
            const Cost cost = inOwnProcess(contenders[index].work);
            if (round > 0) {
                Cost& kept = best[index];
                kept = {std::min(kept.cpuSeconds, cost.cpuSeconds),
                        std::min(kept.wallSeconds, cost.wallSeconds),
                        std::max(kept.peakKibibytes, cost.peakKibibytes)};
            }
        }
    }
    return best;
}

long residentKibibytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void become(std::vector<std::string> command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    if (std::freopen("/dev/null", "w", stdout) != nullptr) {
        ::execvp(arguments.front(), arguments.data());
    }
    ::_exit(127);
}

std::vector<Contender> installed(const std::vector<std::vector<std::string>>& commands) {
    std::vector<Contender> found;
    for (const std::vector<std::string>& command : commands) {
        if (isInstalled(command.front())) {
            found.push_back({command.front(), [command] { become(command); }});
        }
    }
    return found;
}

}
