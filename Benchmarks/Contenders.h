#pragma once

#include <functional>
#include <string>
#include <vector>

/// Measures ways to do the same thing beside each other.
namespace tolvane {

struct Cost {
    double cpuSeconds = 0;
    double wallSeconds = 0;
    long peakKibibytes = 0;
};

struct Contender {
    std::string name;
    std::function<void()> work;
};

/// Runs the work in a process of its own, so that neither its memory nor its caches meet another's.
Cost inOwnProcess(const std::function<void()>& work);

/// The best of several rounds, the contenders in turn within each and `prepare` before each. One
/// round more, the first, only warms the cache.
std::vector<Cost> measure(const std::vector<Contender>& contenders, int rounds,
                          const std::function<void()>& prepare = {});

/// The most memory that this process ever held.
long residentKibibytes();

/// Becomes another program, its output thrown away.
void become(std::vector<std::string> command);

/// Those of the commands whose program this machine has.
std::vector<Contender> installed(const std::vector<std::vector<std::string>>& commands);

}
