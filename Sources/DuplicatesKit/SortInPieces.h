#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>

namespace tolvane {

/// Sorts as `std::sort`, but asks again and again whether to stop: a million elements take longer
/// than a person who cancels should wait. False once it was told to; the elements are then in any
/// order.
template <class Iterator, class Less>
bool sortInPieces(Iterator first, Iterator last, const Less& isLess,
                  const std::function<bool()>& isStopped) {
    constexpr std::ptrdiff_t piece = 32768;
    if (isStopped && isStopped()) {
        return false;
    }
    if (last - first <= piece) {
        std::sort(first, last, isLess);
        return true;
    }
    const Iterator middle = first + (last - first) / 2;
    std::nth_element(first, middle, last, isLess);
    return sortInPieces(first, middle, isLess, isStopped) &&
           sortInPieces(middle, last, isLess, isStopped);
}

}
