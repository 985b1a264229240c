#include <HostKit/linux/LongPath.h>

#include <fcntl.h>
#include <limits.h>

namespace tolvane {
namespace {

constexpr int stepFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

/// The length of the longest start of `path` that ends before a separator and fits one call.
std::size_t stepLength(std::string_view path) {
    const std::size_t separator = path.rfind('/', PATH_MAX - 2);
    return separator == std::string_view::npos ? 0 : separator;
}

Result<Descriptor, SystemError> openAt(int directory, std::string_view path, int flags,
                                       mode_t mode) {
    const std::string terminated(path);
    Descriptor opened(::openat(directory, terminated.c_str(), flags | O_CLOEXEC, mode));
    if (!opened.isOpen()) {
        return tl::unexpected(SystemError::last());
    }
    return opened;
}

/// The system would take the text before it for the path of another item.
bool holdsNul(std::string_view path) {
    return path.find('\0') != std::string_view::npos;
}

std::string_view withoutLeadingSeparators(std::string_view path) {
    const std::size_t start = path.find_first_not_of('/');
    return start == std::string_view::npos ? std::string_view() : path.substr(start);
}

}

Result<Descriptor, SystemError> openPath(std::string_view path, int flags, mode_t mode) {
    if (holdsNul(path)) {
        return tl::unexpected(SystemError{EINVAL});
    }
    Descriptor directory;
    while (path.size() >= PATH_MAX) {
        const std::size_t length = stepLength(path);
        if (length == 0) {
            return tl::unexpected(SystemError{ENAMETOOLONG});
        }
        const int from = directory.isOpen() ? directory.number() : AT_FDCWD;
        Result<Descriptor, SystemError> step = openAt(from, path.substr(0, length), stepFlags, 0);
        if (!step) {
            return step;
        }
        directory = std::move(*step);
        path = withoutLeadingSeparators(path.substr(length));
    }
    const std::string_view rest = path.empty() && directory.isOpen() ? "." : path;
    return openAt(directory.isOpen() ? directory.number() : AT_FDCWD, rest, flags, mode);
}

Result<ItemPlace, SystemError> openParent(std::string_view path) {
    if (path.empty() || holdsNul(path)) {
        return tl::unexpected(SystemError{path.empty() ? ENOENT : EINVAL});
    }
    while (path.size() > 1 && path.back() == '/') {
        path.remove_suffix(1);
    }
    const std::size_t separator = path.rfind('/');
    std::string name(path.substr(separator + 1));
    std::string_view parent = separator == std::string_view::npos ? "." : path.substr(0, separator);
    if (parent.empty()) {
        parent = "/";
    }
    Result<Descriptor, SystemError> opened = openPath(parent, O_PATH | O_DIRECTORY);
    if (!opened) {
        return tl::unexpected(opened.error());
    }
    return ItemPlace{std::move(*opened), name.empty() ? "." : std::move(name)};
}

}
