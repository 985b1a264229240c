#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/Result.h>
#include <HostKit/linux/Descriptor.h>

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

/// `path` from `ancestor` on: empty when they are equal, else beginning with "/"; absent when it
/// does not lie there.
std::optional<std::string> pathBelow(const std::string& path, const std::string& ancestor);

/// How much of a path exists.
struct DeepestDirectory {
    /// The deepest directory on the way, opened with O_PATH, links followed.
    Descriptor directory;
    /// The rest of the path below it; empty when all of it exists.
    std::string missing;
};

Result<DeepestDirectory, SystemError> deepestDirectory(std::string_view path);

/// Makes the directory and the missing ones above it and opens it with O_PATH; one that exists is
/// fine.
Result<Descriptor, SystemError> makeDirectories(std::string_view path, mode_t mode);

/// Where an open directory lies, without any link on the way; absent when the system does not tell
/// (paths longer than PATH_MAX).
std::optional<std::string> linklessPath(const Descriptor& directory, const FileURL& proc);

/// `path` with the links on the way resolved as far as it exists; as it stands when that fails.
std::string linklessPath(const std::string& path, const FileURL& proc);

}
