#include <HostKit/FileURL.h>

#include <vector>

namespace tolvane {
namespace {

std::string_view withoutTrailingSeparators(std::string_view path) {
    while (!path.empty() && path.back() == '/') {
        path.remove_suffix(1);
    }
    return path;
}

std::vector<std::string_view> standardComponents(std::string_view path, bool isAbsolute) {
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const std::size_t end = path.find('/');
        const std::string_view component = path.substr(0, end);
        path = end == std::string_view::npos ? std::string_view() : path.substr(end + 1);
        if (component.empty() || component == ".") {
            continue;
        }
        if (component != "..") {
            components.push_back(component);
        } else if (!components.empty() && components.back() != "..") {
            components.pop_back();
        } else if (!isAbsolute) {
            components.push_back(component);
        }
    }
    return components;
}

}

FileURL FileURL::absolute(std::string_view path, std::string_view workingDirectory) {
    if (path.starts_with('/')) {
        return FileURL(std::string(path));
    }
    return FileURL(std::string(workingDirectory)).appending(path);
}

std::string_view FileURL::lastPathComponent() const {
    const std::string_view path = withoutTrailingSeparators(path_);
    return path.substr(path.rfind('/') + 1);
}

std::string_view FileURL::pathExtension() const {
    const std::string_view name = lastPathComponent();
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

FileURL FileURL::appending(std::string_view component) const {
    std::string path;
    path.reserve(path_.size() + 1 + component.size());
    path = path_;
    appendComponent(path, component);
    return FileURL(std::move(path));
}

FileURL FileURL::deletingLastPathComponent() const {
    const std::string_view path = withoutTrailingSeparators(path_);
    const std::size_t separator = path.rfind('/');
    if (separator == std::string_view::npos) {
        return FileURL(path_.starts_with('/') ? "/" : "");
    }
    const std::string_view parent = withoutTrailingSeparators(path.substr(0, separator));
    return FileURL(parent.empty() ? "/" : std::string(parent));
}

FileURL FileURL::standardized() const {
    const bool isAbsolute = path_.starts_with('/');
    std::string path(isAbsolute ? "/" : "");
    path.reserve(path_.size());
    for (const std::string_view component : standardComponents(path_, isAbsolute)) {
        if (!path.empty() && path.back() != '/') {
            path += '/';
        }
        path += component;
    }
    return FileURL(std::move(path));
}

bool liesWithin(std::string_view path, std::string_view prefix) {
    if (!path.starts_with(prefix)) {
        return false;
    }
    return path.size() == prefix.size() || path[prefix.size()] == '/';
}

void appendComponent(std::string& path, std::string_view component) {
    if (path.empty() || path.back() != '/') {
        path += '/';
    }
    path += component;
}

}
