#include <HostKit/linux/Directories.h>
#include <HostKit/linux/LongPath.h>

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>

namespace tolvane {
namespace {

constexpr int directoryFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

Result<Descriptor, SystemError> makeDirectory(const Descriptor& parent, std::string_view name,
                                              mode_t mode) {
    const std::string terminated(name);
    if (::mkdirat(parent.number(), terminated.c_str(), mode) != 0 && errno != EEXIST) {
        return tl::unexpected(SystemError::last());
    }
    Descriptor made(::openat(parent.number(), terminated.c_str(), directoryFlags));
    if (!made.isOpen()) {
        return tl::unexpected(SystemError::last());
    }
    return made;
}

}

std::optional<std::string> pathBelow(const std::string& path, const std::string& ancestor) {
    if (path == ancestor) {
        return "";
    }
    if (ancestor == "/") {
        return path;
    }
    return liesWithin(path, ancestor) ? std::optional(path.substr(ancestor.size())) : std::nullopt;
}

Result<DeepestDirectory, SystemError> deepestDirectory(std::string_view path) {
    const std::string_view top = path.starts_with('/') ? "/" : ".";
    std::size_t length = path.size();
    while (true) {
        Result<Descriptor, SystemError> opened =
            openPath(length == 0 ? top : path.substr(0, length), O_PATH | O_DIRECTORY);
        if (opened) {
            return DeepestDirectory{std::move(*opened), std::string(path.substr(length))};
        }
        if (opened.error().code != ENOENT || length == 0) {
            return tl::unexpected(opened.error());
        }
        const std::size_t separator = path.rfind('/', length - 1);
        length = separator == std::string_view::npos ? 0 : separator;
    }
}

Result<Descriptor, SystemError> makeDirectories(std::string_view path, mode_t mode) {
    Result<DeepestDirectory, SystemError> deepest = deepestDirectory(path);
    if (!deepest) {
        return tl::unexpected(deepest.error());
    }
    Descriptor directory = std::move(deepest->directory);
    std::string_view missing = deepest->missing;
    while (!missing.empty()) {
        const std::size_t end = missing.find('/');
        const std::string_view name = missing.substr(0, end);
        missing = end == std::string_view::npos ? std::string_view() : missing.substr(end + 1);
        if (name.empty()) {
            continue;
        }
        Result<Descriptor, SystemError> made = makeDirectory(directory, name, mode);
        if (!made) {
            return made;
        }
        directory = std::move(*made);
    }
    return directory;
}

std::optional<std::string> linklessPath(const Descriptor& directory, const FileURL& proc) {
    const FileURL link = proc.appending("self/fd").appending(std::to_string(directory.number()));
    char path[PATH_MAX];
    const ssize_t length = ::readlink(link.path().c_str(), path, sizeof path);
    if (length <= 0 || path[0] != '/') {
        return std::nullopt;
    }
    return std::string(path, static_cast<std::size_t>(length));
}

std::string linklessPath(const std::string& path, const FileURL& proc) {
    const Result<DeepestDirectory, SystemError> deepest = deepestDirectory(path);
    if (!deepest) {
        return path;
    }
    const std::optional<std::string> existing = linklessPath(deepest->directory, proc);
    return existing ? FileURL(*existing + "/" + deepest->missing).standardized().path() : path;
}

}
