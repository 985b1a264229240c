#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <HostKit/linux/Contents.h>
#include <HostKit/linux/Directories.h>
#include <HostKit/linux/DirectoryChain.h>
#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/LongPath.h>
#include <HostKit/linux/Mounts.h>
#include <HostKit/linux/OpenFile.h>

#include <fcntl.h>

#include <cstdlib>

namespace tolvane {
namespace {

constexpr int readFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY;

class LinuxFileManager final : public FileManager {
  public:
    explicit LinuxFileManager(const HostLayout& layout)
        : purgeableFolder_(layout.locations.purgeableFolder)
        , sources_(layout.sources) {}

    Result<std::unique_ptr<Directory>, SystemError>
    openDirectory(const FileURL& url, const Listing& listing) const override {
        Result<Descriptor, SystemError> opened =
            openPath(url.path(), O_RDONLY | O_DIRECTORY | O_NONBLOCK);
        if (!opened) {
            return tl::unexpected(opened.error());
        }
        const std::string path = url.standardized().path();
        const bool isPurgeable = purgeableBelow(path) == "" || isBelowTaggedFolder(path);
        return LinuxDirectory::openTop(url, std::move(*opened), isPurgeable,
                                       purgeableBelow(path).value_or(""), listing);
    }

    Result<ResourceValues, SystemError> values(const FileURL& url) const override {
        const Result<struct statx, SystemError> status = statusOf(url.path());
        if (!status) {
            return tl::unexpected(status.error());
        }
        return resourceValues(*status, isPurgeable(url.standardized()));
    }

    std::optional<FileType> targetType(const FileURL& url) const override {
        const Result<struct statx, SystemError> status = targetStatusOf(url.path());
        return status ? std::optional(fileType(*status)) : std::nullopt;
    }

    FileURL resolvingLinks(const FileURL& url) const override {
        const std::unique_ptr<char, decltype(&std::free)> resolved(
            ::realpath(url.path().c_str(), nullptr), &std::free);
        return resolved ? FileURL(resolved.get()) : url;
    }

    Result<void, SystemError> probeReading(const FileURL& url) const override {
        const Result<Descriptor, SystemError> opened = openPath(url.path(), readFlags);
        if (!opened) {
            return tl::unexpected(opened.error());
        }
        return {};
    }

    Result<std::string, SystemError> read(const FileURL& url, std::size_t limit) const override {
        const Result<Descriptor, SystemError> opened = openPath(url.path(), readFlags);
        if (!opened) {
            return tl::unexpected(opened.error());
        }
        const Result<struct statx, SystemError> status =
            statusAt(opened->number(), "", AT_EMPTY_PATH);
        if (!status || fileType(*status) != FileType::regular) {
            return tl::unexpected(status ? SystemError{EINVAL} : status.error());
        }
        return readContents(*opened, limit);
    }

    Result<std::unique_ptr<ReadableFile>, SystemError> openFile(const FileURL& url) const override {
        return openRegularFile(url.path());
    }

    Result<void, SystemError> createDirectories(const FileURL& url) const override {
        const Result<Descriptor, SystemError> made = makeDirectories(url.path(), 0777);
        if (!made) {
            return tl::unexpected(made.error());
        }
        return {};
    }

    MountTable mounts() const override { return readMounts(sources_); }

  private:
    /// The way from a folder down to the purgeable one: empty when it is that one or lies in it,
    /// absent when the two have nothing to do with each other.
    std::optional<std::string_view> purgeableBelow(const std::string& path) const {
        if (!purgeableFolder_) {
            return std::nullopt;
        }
        const std::string_view purgeable = purgeableFolder_->path();
        if (liesWithin(path, purgeable)) {
            return "";
        }
        if (path == "/") {
            return purgeable.substr(1);
        }
        return liesWithin(purgeable, path) ? std::optional(purgeable.substr(path.size() + 1))
                                           : std::nullopt;
    }

    bool isPurgeable(const FileURL& standardized) const {
        const std::string& path = standardized.path();
        const bool isInPurgeable = purgeableBelow(path) == "" && path != purgeableFolder_->path();
        return isInPurgeable || isBelowTaggedFolder(path);
    }

    /// Whether a folder above `path` is tagged as a cache.
    static bool isBelowTaggedFolder(std::string_view path) {
        for (std::size_t end = path.rfind('/'); end != 0 && end != std::string_view::npos;
             end = path.rfind('/', end - 1)) {
            const Result<Descriptor, SystemError> folder =
                openPath(path.substr(0, end), O_PATH | O_DIRECTORY);
            if (folder && isTaggedAsCache(folder->number())) {
                return true;
            }
        }
        return false;
    }

    std::optional<FileURL> purgeableFolder_;
    HostLayout::Sources sources_;
};

}

std::shared_ptr<const FileManager> systemFileManager(const HostLayout& layout) {
    return std::make_shared<LinuxFileManager>(layout);
}

}
