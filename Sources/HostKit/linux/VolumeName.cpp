#include <HostKit/Machine.h>
#include <HostKit/linux/Mounts.h>

#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace tolvane {
namespace {

std::optional<int> hexadecimalDigit(char digit) {
    constexpr std::string_view digits = "0123456789abcdef";
    const std::size_t value = digits.find(digit);
    return value == std::string_view::npos ? std::nullopt : std::optional(static_cast<int>(value));
}

/// The bytes of a label from the name of its link, in which some stand as "\x20" (udev(7)).
std::string decoded(std::string_view name) {
    constexpr std::size_t codeLength = 4;
    std::string label;
    while (!name.empty()) {
        const bool isLongEnough = name.size() >= codeLength;
        const auto high =
            isLongEnough && name.starts_with("\\x") ? hexadecimalDigit(name[2]) : std::nullopt;
        const auto low = high ? hexadecimalDigit(name[3]) : std::nullopt;
        label += low ? static_cast<char>(*high * 16 + *low) : name.front();
        name.remove_prefix(low ? codeLength : 1);
    }
    return label;
}

/// What the volume that holds `url` was mounted from; absent when that is no device.
std::optional<std::filesystem::path> deviceBehind(const FileURL& url,
                                                  const HostLayout::Sources& sources) {
    std::error_code error;
    const std::filesystem::path place = std::filesystem::canonical(url.path(), error);
    const MountTable mounts = error ? MountTable() : readMounts(sources);
    const Mount* const mount = mounts.covering(place.native());
    if (mount == nullptr || !mount->source.starts_with('/')) {
        return std::nullopt;
    }
    std::filesystem::path device = std::filesystem::canonical(mount->source, error);
    return error ? std::nullopt : std::optional(std::move(device));
}

}

std::optional<std::string> Machine::volumeName(const FileURL& url,
                                               const HostLayout::Sources& sources) {
    const std::optional<std::filesystem::path> device = deviceBehind(url, sources);
    if (!device) {
        return std::nullopt;
    }
    std::error_code error;
    std::filesystem::directory_iterator link(sources.dev.appending("disk/by-label").path(), error);
    for (; !error && link != std::filesystem::directory_iterator(); link.increment(error)) {
        std::error_code isDangling;
        if (std::filesystem::canonical(link->path(), isDangling) == *device) {
            return decoded(link->path().filename().native());
        }
    }
    return std::nullopt;
}

}
