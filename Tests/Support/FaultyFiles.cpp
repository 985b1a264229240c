#include <Support/FaultyFiles.h>

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

}
