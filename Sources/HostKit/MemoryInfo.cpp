#include <HostKit/Lines.h>
#include <HostKit/MemoryInfo.h>
#include <HostKit/Number.h>

#include <algorithm>
#include <array>
#include <map>

namespace tolvane {
namespace {

constexpr Bytes kibibyte = 1024;

/// What /proc/meminfo tells, each in kibibytes.
using Table = std::map<std::string_view, std::int64_t>;

Table tableFrom(std::string_view meminfo) {
    Table table;
    while (!meminfo.empty()) {
        std::string_view line = takeLine(meminfo);
        const std::string_view name = takeWord(line);
        const auto value = wholeNumber<std::int64_t>(takeWord(line));
        if (name.ends_with(':') && value && *value >= 0) {
            table.emplace(name.substr(0, name.size() - 1), *value);
        }
    }
    return table;
}

std::optional<std::int64_t> find(const Table& table, std::string_view name) {
    const auto found = table.find(name);
    return found == table.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::int64_t> sumOf(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    return __builtin_add_overflow(a, b, &result) ? std::nullopt : std::optional(result);
}

std::optional<Bytes> bytes(std::int64_t kibibytes) {
    Bytes result = 0;
    return __builtin_mul_overflow(kibibytes, kibibyte, &result) ? std::nullopt
                                                                : std::optional(result);
}

/// What the system keeps for itself and what may not be moved out of memory.
std::optional<std::int64_t> wired(const Table& table) {
    constexpr std::array<std::string_view, 5> names{"Unevictable", "SUnreclaim", "KernelStack",
                                                    "PageTables", "Percpu"};
    std::optional<std::int64_t> total = 0;
    for (const std::string_view name : names) {
        total = total ? sumOf(*total, find(table, name).value_or(0)) : std::nullopt;
    }
    return total;
}

void addSwap(MemoryCounters& counters, const Table& table) {
    const std::optional<Bytes> total = bytes(find(table, "SwapTotal").value_or(0));
    const std::optional<Bytes> free = bytes(find(table, "SwapFree").value_or(0));
    if (total && free) {
        counters.swapTotal = *total;
        counters.swapUsed = std::max<Bytes>(*total - *free, 0);
    }
}

/// Whether a tenth of the last ten seconds or more was spent waiting.
bool isLong(std::string_view line) {
    constexpr std::string_view name = "avg10=";
    while (!line.empty()) {
        const std::string_view word = takeWord(line);
        if (word.starts_with(name)) {
            return decimalNumber(word.substr(name.size())).value_or(0) >= 10;
        }
    }
    return false;
}

}

std::optional<MemoryCounters> MemoryInfo::parse(std::string_view meminfo) {
    const Table table = tableFrom(meminfo);
    const auto total = find(table, "MemTotal");
    const auto free = find(table, "MemFree");
    const auto available = find(table, "MemAvailable");
    const std::optional<Bytes> totalBytes = total ? bytes(*total) : std::nullopt;
    const std::optional<std::int64_t> wiredCount = wired(table);
    if (!totalBytes || !free || !available || !wiredCount) {
        return std::nullopt;
    }
    MemoryCounters counters;
    counters.unit = kibibyte;
    counters.total = *totalBytes;
    // After the caches were emptied the system may call less available than it calls free.
    counters.free = std::min(*free, *available);
    counters.inactive = *available - counters.free;
    counters.active = find(table, "Active").value_or(0);
    counters.wired = *wiredCount;
    counters.compressed = find(table, "Zswap").value_or(0);
    const auto reclaimable = find(table, "KReclaimable");
    counters.purgeable = reclaimable ? *reclaimable : find(table, "SReclaimable").value_or(0);
    addSwap(counters, table);
    return counters;
}

std::int32_t MemoryInfo::pressureLevel(std::string_view pressure) {
    std::int32_t level = 1;
    while (!pressure.empty()) {
        std::string_view line = takeLine(pressure);
        const std::string_view who = takeWord(line);
        if (who == "full" && isLong(line)) {
            return 4;
        }
        if (who == "some" && isLong(line)) {
            level = 2;
        }
    }
    return level;
}

Bytes MemoryInfo::compressedDisk(std::string_view statistics) {
    std::string_view line = takeLine(statistics);
    takeWord(line);
    takeWord(line);
    const auto taken = wholeNumber<Bytes>(takeWord(line));
    return std::max<Bytes>(taken.value_or(0), 0);
}

}
