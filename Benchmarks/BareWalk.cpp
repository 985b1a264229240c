#include "BareWalk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string_view>

namespace tolvane {
namespace {

constexpr std::size_t bufferSize = 65536;
constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

}

void BareWalk::walk(const std::string& path) {
    const int descriptor = ::open(path.c_str(), folderFlags);
    walkFolder(descriptor);
    ::close(descriptor);
}

void BareWalk::walkFolder(int descriptor) {
    const auto buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
    for (;;) {
        const ssize_t length = ::getdents64(descriptor, buffer.get(), bufferSize);
        if (length <= 0) {
            return;
        }
        for (ssize_t offset = 0; offset < length;) {
            const auto* entry = reinterpret_cast<const dirent64*>(buffer.get() + offset);
            offset += entry->d_reclen;
            const std::string_view name(entry->d_name);
            if (name == "." || name == "..") {
                continue;
            }
            struct statx status;
            if (::statx(descriptor, entry->d_name, AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC,
                        STATX_BASIC_STATS, &status) != 0) {
                continue;
            }
            ++entries;
            if (S_ISDIR(status.stx_mode)) {
                const int folder = ::openat(descriptor, entry->d_name, folderFlags);
                walkFolder(folder);
                ::close(folder);
            } else {
                blocks += static_cast<std::int64_t>(status.stx_blocks);
            }
        }
    }
}

}
