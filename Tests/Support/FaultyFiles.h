#pragma once

#include <HostKit/FileManager.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tolvane {

/// What of a file manager can be made to fail.
enum class FileOperation { openDirectory, openFile, readFile };

/// A file manager in front of another one: before each of these operations a test may do something
/// to the disk, or give the error that it ends with.
class FaultyFiles : public FileManager {
  public:
    using Fault =
        std::function<std::optional<SystemError>(FileOperation operation, const FileURL& url)>;

    FaultyFiles(std::shared_ptr<const FileManager> files, Fault fault)
        : files_(std::move(files))
        , fault_(std::move(fault)) {}

    Result<std::unique_ptr<Directory>, SystemError>
    openDirectory(const FileURL& url, const Listing& listing) const override;
    Result<std::unique_ptr<ReadableFile>, SystemError> openFile(const FileURL& url) const override;
    Result<ResourceValues, SystemError> values(const FileURL& url) const override {
        return files_->values(url);
    }
    std::optional<FileType> targetType(const FileURL& url) const override {
        return files_->targetType(url);
    }
    FileURL resolvingLinks(const FileURL& url) const override {
        return files_->resolvingLinks(url);
    }
    Result<void, SystemError> probeReading(const FileURL& url) const override {
        return files_->probeReading(url);
    }
    Result<std::string, SystemError> read(const FileURL& url, std::size_t limit) const override {
        return files_->read(url, limit);
    }
    Result<void, SystemError> createDirectories(const FileURL& url) const override {
        return files_->createDirectories(url);
    }
    MountTable mounts() const override { return files_->mounts(); }

  private:
    std::shared_ptr<const FileManager> files_;
    Fault fault_;
};

/// Refuses to read what bears this name.
std::shared_ptr<const FileManager> refusing(std::shared_ptr<const FileManager> files,
                                            std::string name);

}
