#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tolvane {

/// The order of many paths, byte by byte. They mostly begin alike, so that comparing a million of
/// them whole, again and again, takes seconds: each is represented by the eight bytes behind what
/// all share, and only those that are alike in these are looked at further on.
class PathOrder {
  public:
    /// What it gives need not outlive the next call.
    using PathAt = std::function<std::string_view(std::uint32_t position)>;

    /// The positions below `count`, ascending by their paths; none once `isStopped` said so. Of
    /// equal paths any may come first.
    static std::vector<std::uint32_t> of(std::uint32_t count, const PathAt& pathAt,
                                         const std::function<bool()>& isStopped = {});

  private:
    struct Place {
        std::uint64_t key;
        std::uint32_t position;
    };

    PathOrder(std::uint32_t count, const PathAt& pathAt, const std::function<bool()>& isStopped);

    bool sort(std::span<Place> places, std::size_t depth);
    std::optional<std::size_t> makeKeys(std::span<Place> places, std::size_t depth) const;
    template <class Visitor>
    bool visit(std::span<Place> places, const Visitor& visitor) const;

    const PathAt& pathAt_;
    const std::function<bool()>& isStopped_;
    std::vector<Place> places_;
};

}
