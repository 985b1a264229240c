#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/LongPath.h>
#include <HostKit/linux/OpenFile.h>

#include <fcntl.h>

#include <cerrno>

namespace tolvane {
namespace {

class LinuxFile final : public ReadableFile {
  public:
    explicit LinuxFile(Descriptor descriptor)
        : descriptor_(std::move(descriptor)) {}

    Result<std::size_t, SystemError> read(Bytes offset, std::span<std::byte> buffer) override {
        ssize_t count = -1;
        do {
            count = ::pread(descriptor_.number(), buffer.data(), buffer.size(), offset);
        } while (count < 0 && errno == EINTR);
        if (count < 0) {
            return tl::unexpected(SystemError::last());
        }
        return static_cast<std::size_t>(count);
    }

    void prefetch(Bytes offset, Bytes length) override {
        ::posix_fadvise(descriptor_.number(), offset, length, POSIX_FADV_WILLNEED);
    }

    Result<ResourceValues, SystemError> values() const override {
        constexpr bool isPurgeable = false;
        return statusAt(descriptor_.number(), "", AT_EMPTY_PATH).map([](const auto& status) {
            ResourceValues values = resourceValues(status, isPurgeable);
            values.isPurgeable.reset();
            return values;
        });
    }

  private:
    Descriptor descriptor_;
};

}

Result<std::unique_ptr<ReadableFile>, SystemError> openRegularFile(std::string_view path) {
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;
    Result<Descriptor, SystemError> opened = openPath(path, flags);
    if (!opened) {
        return tl::unexpected(opened.error());
    }
    const Result<struct statx, SystemError> status = statusAt(opened->number(), "", AT_EMPTY_PATH);
    if (!status || fileType(*status) != FileType::regular) {
        return tl::unexpected(status ? SystemError{EINVAL} : status.error());
    }
    return std::make_unique<LinuxFile>(std::move(*opened));
}

}
