#include <Controllers/MemoryHistory.h>

#include <algorithm>
#include <cmath>

namespace tolvane {

MemoryHistory::MemoryHistory(std::chrono::milliseconds step)
    : step_(std::chrono::duration<double>(step).count())
    , fractions_(steps, unknown) {}

void MemoryHistory::add(Date now, double usedFraction) {
    const double passed = latest_ ? std::round((now - *latest_) / step_) : 1;
    const int moved = static_cast<int>(std::clamp(passed, 0.0, static_cast<double>(steps)));
    if (moved > 0) {
        fractions_.remove(0, moved);
        fractions_.resize(steps, unknown);
        latest_ = now;
    }
    fractions_.last() = std::clamp(usedFraction, 0.0, 1.0);
}

std::optional<double> MemoryHistory::least() const {
    std::optional<double> least;
    for (const double fraction : fractions_) {
        if (fraction >= 0 && (!least || fraction < *least)) {
            least = fraction;
        }
    }
    return least;
}

std::optional<double> MemoryHistory::most() const {
    const double most = *std::max_element(fractions_.begin(), fractions_.end());
    return most < 0 ? std::nullopt : std::optional(most);
}

}
