#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvane {

/// The order of many paths, byte by byte. They mostly begin alike, so that comparing a million of
/// them whole, again and again, takes seconds: each is represented by the eight bytes behind what
/// all share, and only those that are alike in these are looked at further on.
class PathOrder {
  public:
    using PathAt = std::function<std::string_view(std::size_t position)>;

    /// Of the paths at the positions below `count`; `pathAt` is borrowed for as long.
    PathOrder(std::size_t count, const PathAt& pathAt);

    /// Gives the records that belong to the paths the order of the paths.
    template <class Record>
    void apply(std::span<Record> records) &&;

  private:
    struct Place {
        std::uint64_t key;
        std::uint32_t position;
    };

    void sort(std::span<Place> places, std::size_t depth);
    std::size_t makeKeys(std::span<Place> places, std::size_t depth) const;

    const PathAt& pathAt_;
    std::vector<Place> places_;
};

template <class Record>
void PathOrder::apply(std::span<Record> records) && {
    for (std::size_t start = 0; start < records.size(); ++start) {
        Record first = std::move(records[start]);
        std::size_t at = start;
        while (places_[at].position != start) {
            const std::size_t from = std::exchange(places_[at].position, std::uint32_t(at));
            records[at] = std::move(records[from]);
            at = from;
        }
        places_[at].position = static_cast<std::uint32_t>(at);
        records[at] = std::move(first);
    }
}

/// Sorts records by the path that `pathOf` gives of each.
template <class Record, class PathOf>
void sortByPath(std::span<Record> records, const PathOf& pathOf) {
    constexpr std::size_t many = 64;
    if (records.size() < many) {
        std::ranges::sort(records, {}, pathOf);
        return;
    }
    const PathOrder::PathAt pathAt = [&](std::size_t at) {
        return std::string_view(std::invoke(pathOf, records[at]));
    };
    PathOrder(records.size(), pathAt).apply(records);
}

}
