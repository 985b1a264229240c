#include <ArborviewKit/Bitmap.h>

#include <algorithm>
#include <bit>

namespace tolvane {
namespace {

constexpr std::uint64_t allBits = ~std::uint64_t{0};

}

Bitmap::Bitmap(std::size_t count)
    : count_(count)
    , words_((count + 63) / 64) {}

void Bitmap::fill(std::size_t begin, std::size_t end, bool value) {
    while (begin < end) {
        const std::size_t word = begin / 64;
        const std::size_t first = begin % 64;
        const std::size_t behind = std::min<std::size_t>(64, first + (end - begin));
        const std::uint64_t mask = (allBits << first) & (allBits >> (64 - behind));
        words_[word] = value ? words_[word] | mask : words_[word] & ~mask;
        begin += behind - first;
    }
}

std::size_t Bitmap::next(std::size_t from, std::uint64_t flip) const {
    if (from >= count_) {
        return count_;
    }
    std::size_t word = from / 64;
    std::uint64_t bits = (words_[word] ^ flip) & (allBits << (from % 64));
    while (bits == 0 && ++word < words_.size()) {
        bits = words_[word] ^ flip;
    }
    if (bits == 0) {
        return count_;
    }
    return std::min(count_, word * 64 + static_cast<std::size_t>(std::countr_zero(bits)));
}

}
