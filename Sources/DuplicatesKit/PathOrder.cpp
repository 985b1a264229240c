#include <DuplicatesKit/PathOrder.h>
#include <DuplicatesKit/Runs.h>

namespace tolvane {
namespace {

constexpr std::size_t keyLength = sizeof(std::uint64_t);

/// Compares as the bytes do; a path that ends before them comes first, since none holds a zero.
std::uint64_t keyOf(std::string_view path, std::size_t depth) {
    std::uint64_t key = 0;
    for (std::size_t at = depth; at < depth + keyLength; ++at) {
        key = key << 8 | (at < path.size() ? static_cast<unsigned char>(path[at]) : 0U);
    }
    return key;
}

/// How many bytes are the same from the start, of which `depth` are known to be.
std::size_t sharedLength(std::string_view a, std::string_view b, std::size_t depth) {
    const std::size_t end = std::min(a.size(), b.size());
    std::size_t at = std::min(depth, end);
    while (at < end && a[at] == b[at]) {
        ++at;
    }
    return at;
}

}

PathOrder::PathOrder(std::size_t count, const PathAt& pathAt)
    : pathAt_(pathAt) {
    places_.reserve(count);
    for (std::size_t at = 0; at < count; ++at) {
        places_.push_back({0, static_cast<std::uint32_t>(at)});
    }
    sort(places_, 0);
}

/// Of paths that agree in their first `depth` bytes. Each call tells some of them apart, so that
/// the calls nest no deeper than there are paths.
void PathOrder::sort(std::span<Place> places, std::size_t depth) {
    const std::size_t shared = makeKeys(places, depth);
    std::ranges::sort(places, {}, &Place::key);
    const auto isAlike = [](const Place& a, const Place& b) { return a.key == b.key; };
    for (std::size_t start = 0; start < places.size();) {
        const Run run = runAt(places, start, places.size(), isAlike);
        start = run.end;
        if (run.count() > 1 && run.count() < places.size()) {
            sort(places.subspan(run.start, run.count()), shared + keyLength);
        }
    }
}

/// Gives how many bytes stand before the keys. To look at a path is what takes long, so that first
/// and last are taken to share what all do.
std::size_t PathOrder::makeKeys(std::span<Place> places, std::size_t depth) const {
    const std::string_view first = pathAt_(places.front().position);
    const std::size_t likely = sharedLength(first, pathAt_(places.back().position), depth);
    std::size_t shared = likely;
    for (Place& place : places) {
        const std::string_view path = pathAt_(place.position);
        shared = sharedLength(first.substr(0, shared), path, depth);
        place.key = keyOf(path, likely);
    }
    if (shared < likely) {
        for (Place& place : places) {
            place.key = keyOf(pathAt_(place.position), shared);
        }
    }
    return shared;
}

}
