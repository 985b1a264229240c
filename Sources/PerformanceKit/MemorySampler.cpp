#include <PerformanceKit/MemorySampler.h>

namespace tolvane {
namespace {

/// Turns counts into bytes and remembers when they were too large for that.
class Scale {
  public:
    explicit Scale(Bytes unit)
        : unit_(unit) {}

    Bytes operator()(std::int64_t count) {
        Bytes size = 0;
        fits_ = !__builtin_mul_overflow(count, unit_, &size) &&
                !__builtin_add_overflow(total_, size, &total_) && fits_;
        return size;
    }
    bool fits() const { return fits_; }

  private:
    Bytes unit_;
    /// No machine has so much that this would not fit, whatever counts twice.
    Bytes total_ = 0;
    bool fits_ = true;
};

}

std::optional<MemoryStats> MemorySampler::sample(const HostLayout::Sources& sources) {
    const std::optional<MemoryCounters> counters = Machine::memory(sources);
    return counters ? stats(*counters) : std::nullopt;
}

std::optional<MemoryStats> MemorySampler::stats(const MemoryCounters& counters) {
    Scale bytes(counters.unit);
    const MemoryStats stats{.total = counters.total,
                            .free = bytes(counters.free),
                            .active = bytes(counters.active),
                            .inactive = bytes(counters.inactive),
                            .wired = bytes(counters.wired),
                            .compressed = bytes(counters.compressed),
                            .purgeable = bytes(counters.purgeable),
                            .speculative = bytes(counters.speculative),
                            .swapTotal = counters.swapTotal,
                            .swapUsed = counters.swapUsed,
                            .pressureLevel = counters.pressureLevel};
    const bool isPossible = bytes.fits() && counters.unit >= 0 && counters.total >= 0;
    return isPossible ? std::optional(stats) : std::nullopt;
}

}
