#include <Support/FaultyFiles.h>

#include <cerrno>

namespace tolvane {
namespace {

class FaultyDirectory final : public Directory {
  public:
    FaultyDirectory(std::unique_ptr<Directory> directory, FileURL url, const FaultyFiles& files)
        : directory_(std::move(directory))
        , url_(std::move(url))
        , files_(files) {}

    std::size_t count() const override { return directory_->count(); }
    std::string_view name(std::size_t position) const override {
        return directory_->name(position);
    }
    EntryType listedType(std::size_t position) const override {
        return directory_->listedType(position);
    }
    Result<ResourceValues, SystemError> values(std::size_t position) override {
        return directory_->values(position);
    }
    Result<std::unique_ptr<Directory>, SystemError> open(std::size_t position,
                                                         const Listing& listing) override {
        return files_.openDirectory(url_.appending(name(position)), listing);
    }

  private:
    std::unique_ptr<Directory> directory_;
    FileURL url_;
    const FaultyFiles& files_;
};

class FaultyFile final : public ReadableFile {
  public:
    FaultyFile(std::unique_ptr<ReadableFile> file, FileURL url, FaultyFiles::Fault fault)
        : file_(std::move(file))
        , url_(std::move(url))
        , fault_(std::move(fault)) {}

    Result<std::size_t, SystemError> read(Bytes offset, std::span<std::byte> buffer) override {
        if (const auto error = fault_(FileOperation::readFile, url_)) {
            return tl::unexpected(*error);
        }
        return file_->read(offset, buffer);
    }
    void prefetch(Bytes offset, Bytes length) override { file_->prefetch(offset, length); }
    Result<ResourceValues, SystemError> values() const override { return file_->values(); }

  private:
    std::unique_ptr<ReadableFile> file_;
    FileURL url_;
    FaultyFiles::Fault fault_;
};

}

Result<std::unique_ptr<ReadableFile>, SystemError> FaultyFiles::openFile(const FileURL& url) const {
    if (const auto error = fault_(FileOperation::openFile, url)) {
        return tl::unexpected(*error);
    }
    return files_->openFile(url).map([&](std::unique_ptr<ReadableFile> opened) {
        return std::unique_ptr<ReadableFile>(new FaultyFile(std::move(opened), url, fault_));
    });
}

Result<std::unique_ptr<Directory>, SystemError>
FaultyFiles::openDirectory(const FileURL& url, const Listing& listing) const {
    if (const auto error = fault_(FileOperation::openDirectory, url)) {
        return tl::unexpected(*error);
    }
    return files_->openDirectory(url, listing).map([&](std::unique_ptr<Directory> opened) {
        return std::unique_ptr<Directory>(new FaultyDirectory(std::move(opened), url, *this));
    });
}

std::shared_ptr<const FileManager> refusing(std::shared_ptr<const FileManager> files,
                                            std::string name) {
    return std::make_shared<FaultyFiles>(std::move(files), [name = std::move(name)](
                                                               FileOperation, const FileURL& url) {
        return url.lastPathComponent() == name ? std::optional(SystemError{EACCES}) : std::nullopt;
    });
}

}
