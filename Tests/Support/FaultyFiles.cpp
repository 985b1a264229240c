#include <Support/FaultyFiles.h>

namespace tolvane {
namespace {

class FaultyDirectory final : public Directory {
  public:
    FaultyDirectory(std::unique_ptr<Directory> directory, FileURL url,
                    const FaultyFiles::Fault& fault)
        : directory_(std::move(directory))
        , url_(std::move(url))
        , fault_(fault) {}

    std::size_t count() const override { return directory_->count(); }
    std::string_view name(std::size_t position) const override {
        return directory_->name(position);
    }
    EntryType listedType(std::size_t position) const override {
        return directory_->listedType(position);
    }
    Result<ResourceValues, SystemError> values(std::size_t position) override {
        if (const auto error = fault_(FileOperation::values, child(position))) {
            return tl::unexpected(*error);
        }
        return directory_->values(position);
    }
    Result<std::unique_ptr<Directory>, SystemError> open(std::size_t position,
                                                         const Listing& listing) override {
        if (const auto error = fault_(FileOperation::openDirectory, child(position))) {
            return tl::unexpected(*error);
        }
        return directory_->open(position, listing).map([&](std::unique_ptr<Directory> opened) {
            return std::unique_ptr<Directory>(
                new FaultyDirectory(std::move(opened), child(position), fault_));
        });
    }

  private:
    FileURL child(std::size_t position) const { return url_.appending(name(position)); }

    std::unique_ptr<Directory> directory_;
    FileURL url_;
    const FaultyFiles::Fault& fault_;
};

}

FaultyFiles::FaultyFiles(std::shared_ptr<const FileManager> files, Fault fault)
    : files_(std::move(files))
    , fault_(std::move(fault)) {}

Result<std::unique_ptr<Directory>, SystemError>
FaultyFiles::openDirectory(const FileURL& url, const Listing& listing) const {
    if (const auto error = fault_(FileOperation::openDirectory, url)) {
        return tl::unexpected(*error);
    }
    return files_->openDirectory(url, listing).map([&](std::unique_ptr<Directory> opened) {
        return std::unique_ptr<Directory>(new FaultyDirectory(std::move(opened), url, fault_));
    });
}

Result<ResourceValues, SystemError> FaultyFiles::values(const FileURL& url) const {
    if (const auto error = fault_(FileOperation::values, url)) {
        return tl::unexpected(*error);
    }
    return files_->values(url);
}

std::optional<FileType> FaultyFiles::targetType(const FileURL& url) const {
    return files_->targetType(url);
}

FileURL FaultyFiles::resolvingLinks(const FileURL& url) const {
    return files_->resolvingLinks(url);
}

Result<void, SystemError> FaultyFiles::probeReading(const FileURL& url) const {
    return files_->probeReading(url);
}

Result<std::string, SystemError> FaultyFiles::read(const FileURL& url, std::size_t limit) const {
    return files_->read(url, limit);
}

Result<void, SystemError> FaultyFiles::createDirectories(const FileURL& url) const {
    if (const auto error = fault_(FileOperation::createDirectories, url)) {
        return tl::unexpected(*error);
    }
    return files_->createDirectories(url);
}

MountTable FaultyFiles::mounts() const {
    return files_->mounts();
}

}
