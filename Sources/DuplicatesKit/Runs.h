#pragma once

#include <cstddef>

namespace tolvane {

/// Consecutive elements of a list that belong together: the first one's index and the one behind
/// the last.
struct Run {
    std::size_t start;
    std::size_t end;

    std::size_t count() const { return end - start; }
};

/// The run that starts at `start`: all that follows up to `end` and belongs to its predecessor.
template <class List, class Belongs>
Run runAt(const List& list, std::size_t start, std::size_t end, const Belongs& belong) {
    std::size_t next = start + 1;
    while (next < end && belong(list[next - 1], list[next])) {
        ++next;
    }
    return {start, next};
}

/// Takes out what belongs to nothing else; the rest keeps its order.
template <class List, class Belongs>
void removeSingles(List& list, const Belongs& belong) {
    std::size_t kept = 0;
    for (std::size_t start = 0; start < list.size();) {
        const Run run = runAt(list, start, list.size(), belong);
        for (std::size_t at = run.start; run.count() > 1 && at < run.end; ++at) {
            list[kept++] = list[at];
        }
        start = run.end;
    }
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(kept), list.end());
}

}
