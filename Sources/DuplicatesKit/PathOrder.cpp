#include <DuplicatesKit/PathOrder.h>
#include <DuplicatesKit/Runs.h>
#include <DuplicatesKit/SortInPieces.h>

#include <algorithm>
#include <string>

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

std::vector<std::uint32_t> PathOrder::of(std::uint32_t count, const PathAt& pathAt,
                                         const std::function<bool()>& isStopped) {
    PathOrder order(count, pathAt, isStopped);
    if (count > 0 && !order.sort(order.places_, 0)) {
        return {};
    }
    std::vector<std::uint32_t> positions;
    positions.reserve(count);
    for (const Place& place : order.places_) {
        positions.push_back(place.position);
    }
    return positions;
}

PathOrder::PathOrder(std::uint32_t count, const PathAt& pathAt,
                     const std::function<bool()>& isStopped)
    : pathAt_(pathAt)
    , isStopped_(isStopped) {
    places_.reserve(count);
    for (std::uint32_t position = 0; position < count; ++position) {
        places_.push_back({0, position});
    }
}

/// Of paths that agree in their first `depth` bytes. Each call tells some of them apart, so that
/// the calls nest no deeper than there are paths.
bool PathOrder::sort(std::span<Place> places, std::size_t depth) {
    const std::optional<std::size_t> shared = makeKeys(places, depth);
    const auto isBefore = [](const Place& a, const Place& b) { return a.key < b.key; };
    if (!shared || !sortInPieces(places.begin(), places.end(), isBefore, isStopped_)) {
        return false;
    }
    const auto isAlike = [](const Place& a, const Place& b) { return a.key == b.key; };
    for (std::size_t start = 0; start < places.size();) {
        const Run run = runAt(places, start, places.size(), isAlike);
        start = run.end;
        if (run.count() > 1 && run.count() < places.size() &&
            !sort(places.subspan(run.start, run.count()), *shared + keyLength)) {
            return false;
        }
    }
    return true;
}

/// Gives how many bytes stand before the keys, nothing once it was stopped. To look at a path is
/// what takes long, so that first and last are taken to share what all do.
std::optional<std::size_t> PathOrder::makeKeys(std::span<Place> places, std::size_t depth) const {
    const std::string start(pathAt_(places.front().position));
    const std::string_view first = start;
    const std::size_t likely = sharedLength(first, pathAt_(places.back().position), depth);
    std::size_t shared = likely;
    bool isDone = visit(places, [&](Place& place, std::string_view path) {
        shared = sharedLength(first.substr(0, shared), path, depth);
        place.key = keyOf(path, likely);
    });
    if (isDone && shared < likely) {
        isDone = visit(
            places, [&](Place& place, std::string_view path) { place.key = keyOf(path, shared); });
    }
    return isDone ? std::optional(shared) : std::nullopt;
}

template <class Visitor>
bool PathOrder::visit(std::span<Place> places, const Visitor& visitor) const {
    constexpr std::size_t piece = 32768;
    for (std::size_t index = 0; index < places.size(); ++index) {
        if (index % piece == piece - 1 && isStopped_ && isStopped_()) {
            return false;
        }
        visitor(places[index], pathAt_(places[index].position));
    }
    return true;
}

}
