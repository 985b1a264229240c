#include <HostKit/linux/Contents.h>
#include <HostKit/linux/LongPath.h>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>

namespace tolvane {
namespace {

constexpr std::size_t bufferSize = 16384;

}

Result<std::string, SystemError> readFile(const FileURL& url, std::size_t limit) {
    const Result<Descriptor, SystemError> file = openPath(url.path(), O_RDONLY);
    return file ? readContents(*file, limit) : tl::unexpected(file.error());
}

Result<std::string, SystemError> readContents(const Descriptor& file, std::size_t limit) {
    std::string content;
    while (content.size() < limit) {
        char buffer[bufferSize];
        const std::size_t wanted = std::min(bufferSize, limit - content.size());
        const ssize_t count = ::read(file.number(), buffer, wanted);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return tl::unexpected(SystemError::last());
        }
        if (count == 0) {
            break;
        }
        content.append(buffer, static_cast<std::size_t>(count));
    }
    return content;
}

Result<void, SystemError> writeContents(const Descriptor& file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(file.number(), content.data(), content.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return tl::unexpected(SystemError::last());
        }
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

}
