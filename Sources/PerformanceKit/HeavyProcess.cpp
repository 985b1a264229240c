#include <HostKit/FileURL.h>
#include <PerformanceKit/HeavyProcess.h>

#include <boost/container_hash/hash.hpp>

namespace tolvane {

std::string HeavyProcess::displayName() const {
    return std::string(FileURL(name).lastPathComponent());
}

}

std::size_t
std::hash<tolvane::HeavyProcess>::operator()(const tolvane::HeavyProcess& process) const {
    std::size_t seed = 0;
    boost::hash_combine(seed, process.pid);
    boost::hash_combine(seed, process.name);
    boost::hash_combine(seed, process.rssBytes);
    boost::hash_combine(seed, process.cpuPercent);
    return seed;
}
