#pragma once

#include <HostKit/FileManager.h>

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// One item of a file system that exists in memory only. Every attribute can be absent.
struct SyntheticItem {
    std::string name;
    ResourceValues values;
    /// In listing order; of directories only.
    std::vector<SyntheticItem> children = {};
    /// Where a link leads; of links only.
    std::string target = {};
    /// Given instead of the attributes.
    std::optional<SystemError> valuesError = {};
    /// Given instead of the listing.
    std::optional<SystemError> listingError = {};

    static SyntheticItem file(std::string name, Bytes allocatedSize, Bytes logicalSize = 0);
    static SyntheticItem folder(std::string name, std::vector<SyntheticItem> children = {});
    static SyntheticItem link(std::string name, std::string target, Bytes size);
};

/// A file system made of such items: for trees, sizes and numbers of entries that no disk should
/// have to hold, in a listing order that a test decides.
class SyntheticFiles final : public FileManager {
  public:
    /// `root` bears the path `rootPath`; nothing else exists.
    SyntheticFiles(std::string rootPath, SyntheticItem root)
        : rootPath_(std::move(rootPath))
        , root_(std::move(root)) {}

    Result<std::unique_ptr<Directory>, SystemError>
    openDirectory(const FileURL& url, const Listing& listing) const override;
    Result<ResourceValues, SystemError> values(const FileURL& url) const override;
    std::optional<FileType> targetType(const FileURL& url) const override;
    FileURL resolvingLinks(const FileURL& url) const override;
    Result<void, SystemError> probeReading(const FileURL& url) const override {
        return values(resolvingLinks(url)).map([](const ResourceValues&) {});
    }
    Result<std::string, SystemError> read(const FileURL&, std::size_t) const override {
        return tl::unexpected(SystemError{EIO});
    }
    Result<std::unique_ptr<ReadableFile>, SystemError> openFile(const FileURL&) const override {
        return tl::unexpected(SystemError{EIO});
    }
    Result<void, SystemError> createDirectories(const FileURL&) const override {
        return tl::unexpected(SystemError{EROFS});
    }
    MountTable mounts() const override { return {}; }

  private:
    const SyntheticItem* find(const FileURL& url) const;

    std::string rootPath_;
    SyntheticItem root_;
};

}
