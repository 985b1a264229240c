/// Prints what a refresh of the machine's state takes of a processor, "ps" included, with 300
/// processes more than there were, and how the parts of it share in that. Goal: 30 ms.

#include <HostKit/HostLayout.h>
#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/ProcessSampler.h>
#include <PerformanceKit/VolumeSampler.h>

#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tolvane {
namespace {

constexpr int rounds = 51;
constexpr int processes = 300;

double milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
}

/// Of a processor, in this program and below it, children that have ended included.
double processorTime() {
    double total = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        ::getrusage(who, &usage);
        total += milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
    }
    return total;
}

void measure(const std::string& what, const std::function<void()>& work) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        const double before = processorTime();
        work();
        times.push_back(processorTime() - before);
    }
    std::sort(times.begin(), times.end());
    fmt::print("{:<22} {:6.2f} ms, at most {:.2f} ms\n", what, times[times.size() / 2],
               times.back());
}

std::vector<pid_t> makeProcesses() {
    std::vector<pid_t> made;
    for (int count = 0; count < processes; ++count) {
        const pid_t pid = ::fork();
        if (pid == 0) {
            ::execlp("sleep", "sleep", "1000", nullptr);
            ::_exit(1);
        }
        made.push_back(pid);
    }
    return made;
}

std::size_t running() {
    const std::filesystem::directory_iterator entries("/proc");
    return static_cast<std::size_t>(
        std::count_if(begin(entries), end(entries), [](const auto& entry) {
            return entry.path().filename().native().find_first_not_of("0123456789") ==
                   std::string::npos;
        }));
}

void measureRefresh() {
    const HostLayout layout = HostLayout::current();
    const FileURL root("/");
    const auto sampleMemory = [&] { MemorySampler::sample(layout.sources); };
    const auto sampleVolume = [&] { VolumeSampler::sample(root, layout.sources); };
    const auto listProcesses = [&] {
        if (ProcessSampler::top(8, layout.tools, layout.sources).size() != 8) {
            fmt::print(stderr, "The processes could not be listed\n");
            std::exit(1);
        }
    };
    fmt::print("{} processes, {} rounds, time of a processor, median:\n", running(), rounds);
    measure("memory", sampleMemory);
    measure("volume", sampleVolume);
    measure("processes with ps", listProcesses);
    measure("a whole refresh", [&] {
        sampleMemory();
        sampleVolume();
        listProcesses();
    });
}

}
}

int main() {
    const std::vector<pid_t> made = tolvane::makeProcesses();
    tolvane::measureRefresh();
    for (const pid_t pid : made) {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
    }
}
