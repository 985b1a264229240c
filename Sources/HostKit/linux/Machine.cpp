#include <HostKit/Machine.h>
#include <HostKit/linux/LongPath.h>

#include <fcntl.h>
#include <sys/statvfs.h>

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
    return VolumeCapacity{*total, *available};
}

}
