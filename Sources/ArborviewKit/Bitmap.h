#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tolvane {

/// One bit for each position; ranges cost a 64th of a step for each.
class Bitmap {
  public:
    Bitmap() = default;
    /// All bits clear.
    explicit Bitmap(std::size_t count);

    std::size_t count() const { return count_; }
    bool operator[](std::size_t position) const {
        return (words_[position / 64] >> (position % 64) & 1U) != 0;
    }
    void set(std::size_t position) { words_[position / 64] |= std::uint64_t{1} << (position % 64); }
    /// Sets or clears every bit from `begin` on and before `end`.
    void fill(std::size_t begin, std::size_t end, bool value);
    /// The first position at or behind `from` that is set; `count()` when there is none.
    std::size_t nextSet(std::size_t from) const { return next(from, 0); }
    /// The first position at or behind `from` that is clear; `count()` when there is none.
    std::size_t nextClear(std::size_t from) const { return next(from, ~std::uint64_t{0}); }

  private:
    std::size_t next(std::size_t from, std::uint64_t flip) const;

    std::size_t count_ = 0;
    std::vector<std::uint64_t> words_;
};

}
