#include <PerformanceKit/LocalSnapshot.h>
#include <PerformanceKit/SnapshotInventory.h>

#include <boost/container_hash/hash.hpp>

namespace tolvane {

std::string LocalSnapshot::id() const {
    return volume + "-" + date;
}

std::vector<LocalSnapshot> SnapshotInventory::all() const {
    std::vector<LocalSnapshot> snapshots = system;
    snapshots.insert(snapshots.end(), data.begin(), data.end());
    return snapshots;
}

}

std::size_t
std::hash<tolvane::LocalSnapshot>::operator()(const tolvane::LocalSnapshot& snapshot) const {
    std::size_t seed = 0;
    boost::hash_combine(seed, snapshot.date);
    boost::hash_combine(seed, snapshot.volume);
    boost::hash_combine(seed, snapshot.purgeable.has_value());
    boost::hash_combine(seed, snapshot.purgeable.value_or(false));
    return seed;
}
