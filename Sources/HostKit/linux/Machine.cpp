#include <HostKit/Lines.h>
#include <HostKit/Machine.h>
#include <HostKit/MemoryInfo.h>
#include <HostKit/Number.h>
#include <HostKit/linux/Contents.h>
#include <HostKit/linux/LongPath.h>

#include <fcntl.h>
#include <malloc.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace tolvane {
namespace {

/// The size of so many blocks; absent when no disk could be that large.
std::optional<Bytes> size(fsblkcnt_t blocks, unsigned long blockSize) {
    Bytes bytes = 0;
    if (__builtin_mul_overflow(blocks, blockSize, &bytes)) {
        return std::nullopt;
    }
    return bytes;
}

/// What all compressed disks take of memory; absent when they claim more than can be.
std::optional<Bytes> compressedDisks(const FileURL& sys) {
    Bytes total = 0;
    std::error_code error;
    std::filesystem::directory_iterator entry(sys.appending("block").path(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (entry->path().filename().native().starts_with("zram")) {
            const FileURL statistics = FileURL(entry->path().native()).appending("mm_stat");
            const Bytes taken = MemoryInfo::compressedDisk(readFile(statistics).value_or(""));
            if (__builtin_add_overflow(total, taken, &total)) {
                return std::nullopt;
            }
        }
    }
    return total;
}

/// The memory that this process occupies, from /proc/self/smaps_rollup (proc(5)); absent where the
/// kernel has no such file.
std::optional<Bytes> exactResidentSize(const FileURL& proc) {
    const Result<std::string, SystemError> rollup = readFile(proc.appending("self/smaps_rollup"));
    std::string_view text = rollup ? std::string_view(*rollup) : std::string_view();
    while (!text.empty()) {
        std::string_view line = takeLine(text);
        if (takeWord(line) == "Rss:") {
            constexpr Bytes kibibyte = 1024;
            const auto size = wholeNumber<std::int32_t>(takeWord(line));
            return size ? std::optional(*size * kibibyte) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// The same from /proc/self/statm, which lags behind.
Bytes residentSize(const FileURL& proc) {
    if (const std::optional<Bytes> exact = exactResidentSize(proc)) {
        return *exact;
    }
    const std::string statm = readFile(proc.appending("self/statm")).value_or("");
    std::string_view line = statm;
    takeWord(line);
    return wholeNumber<std::int32_t>(takeWord(line)).value_or(0) * Bytes{::sysconf(_SC_PAGESIZE)};
}

}

std::optional<MemoryCounters> Machine::memory(const HostLayout::Sources& sources) {
    const Result<std::string, SystemError> text = readFile(sources.proc.appending("meminfo"));
    std::optional<MemoryCounters> counters = text ? MemoryInfo::parse(*text) : std::nullopt;
    const std::optional<Bytes> disks = compressedDisks(sources.sys);
    if (!counters || !disks ||
        __builtin_add_overflow(counters->compressed, *disks / counters->unit,
                               &counters->compressed)) {
        return std::nullopt;
    }
    counters->pressureLevel =
        MemoryInfo::pressureLevel(readFile(sources.proc.appending("pressure/memory")).value_or(""));
    return counters;
}

std::optional<VolumeCapacity> Machine::volume(const FileURL& url) {
    const Result<Descriptor, SystemError> opened = openPath(url.path(), O_PATH);
    struct statvfs status {};
    if (!opened || ::fstatvfs(opened->number(), &status) != 0) {
        return std::nullopt;
    }
    const std::optional<Bytes> total = size(status.f_blocks, status.f_frsize);
    const std::optional<Bytes> available = size(status.f_bavail, status.f_frsize);
    if (!total || !available) {
        return std::nullopt;
    }
    return VolumeCapacity{.total = *total, .available = *available};
}

Bytes Machine::releaseAllocatorPages(const HostLayout::Sources& sources) {
#ifdef __GLIBC__
    const Bytes before = residentSize(sources.proc);
    ::malloc_trim(0);
    return std::max<Bytes>(before - residentSize(sources.proc), 0);
#else
    return 0;
#endif
}

bool Machine::hasGraphicsProcessor(const HostLayout::Sources& sources) {
    const auto isUsable = [](const FileURL& device) {
        return ::access(device.path().c_str(), R_OK | W_OK) == 0;
    };
    // The nodes of drivers that can do more than show a picture (Documentation/gpu/drm-uapi.rst).
    const FileURL nodes = sources.dev.appending("dri");
    std::error_code error;
    std::filesystem::directory_iterator entry(nodes.path(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().native();
        if (name.starts_with("renderD") && isUsable(nodes.appending(name))) {
            return true;
        }
    }
    // Drivers that have none: Nvidia's own, and that of Linux inside Windows.
    return isUsable(sources.dev.appending("nvidiactl")) || isUsable(sources.dev.appending("dxg"));
}

}
