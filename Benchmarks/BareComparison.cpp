#include "BareComparison.h"

#include <dirent.h>
#include <fcntl.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <tuple>
#include <vector>

namespace tolvane {
namespace {

constexpr std::size_t listingSize = 65536;
constexpr std::size_t chunkSize = 1'048'576;
constexpr std::int64_t pieceSize = 4096;

using Value = std::array<unsigned char, 32>;

struct File {
    std::string path;
    std::int64_t size = 0;
    Value digest{};

    auto key() const { return std::tie(size, digest); }
};

void list(const std::string& path, std::vector<File>& files) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const auto buffer = std::make_unique_for_overwrite<char[]>(listingSize);
    for (ssize_t length = 0; (length = ::getdents64(descriptor, buffer.get(), listingSize)) > 0;) {
        for (ssize_t offset = 0; offset < length;) {
            const auto* entry = reinterpret_cast<const dirent64*>(buffer.get() + offset);
            offset += entry->d_reclen;
            const std::string_view name(entry->d_name);
            struct statx status;
            if (name == "." || name == ".." ||
                ::statx(descriptor, entry->d_name, AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC,
                        STATX_BASIC_STATS, &status) != 0) {
                continue;
            }
            if (S_ISDIR(status.stx_mode)) {
                list(path + "/" + entry->d_name, files);
            } else if (S_ISREG(status.stx_mode)) {
                files.push_back(
                    {path + "/" + entry->d_name, static_cast<std::int64_t>(status.stx_size), {}});
            }
        }
    }
    ::close(descriptor);
}

class Hasher {
  public:
    Hasher() = default;
    Hasher(const Hasher&) = delete;
    Hasher& operator=(const Hasher&) = delete;
    ~Hasher() {
        EVP_MD_CTX_free(context_);
        EVP_MD_free(algorithm_);
    }
    void start() { EVP_DigestInit_ex2(context_, algorithm_, nullptr); }
    void update(std::size_t count) { EVP_DigestUpdate(context_, buffer.get(), count); }
    Value finish() {
        Value value{};
        EVP_DigestFinal_ex(context_, value.data(), nullptr);
        return value;
    }

    std::unique_ptr<unsigned char[]> buffer =
        std::make_unique_for_overwrite<unsigned char[]>(chunkSize);

  private:
    EVP_MD_CTX* context_ = EVP_MD_CTX_new();
    EVP_MD* algorithm_ = EVP_MD_fetch(nullptr, "SHA256", nullptr);
};

Value headAndTail(const File& file, Hasher& hasher) {
    const int descriptor = ::open(file.path.c_str(), O_RDONLY | O_CLOEXEC);
    hasher.start();
    const auto take = [&](std::int64_t offset) {
        const ssize_t count = ::pread(descriptor, hasher.buffer.get(), pieceSize, offset);
        hasher.update(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    };
    take(0);
    if (file.size > 2 * pieceSize) {
        take(file.size - pieceSize);
    }
    ::close(descriptor);
    return hasher.finish();
}

Value whole(const File& file, Hasher& hasher) {
    const int descriptor = ::open(file.path.c_str(), O_RDONLY | O_CLOEXEC);
    hasher.start();
    for (ssize_t count = 0; (count = ::read(descriptor, hasher.buffer.get(), chunkSize)) > 0;) {
        hasher.update(static_cast<std::size_t>(count));
    }
    ::close(descriptor);
    return hasher.finish();
}

/// Leaves those that are equal by `key` to another one.
template <class Key>
void keepEqual(std::vector<File>& files, const Key& key) {
    std::ranges::sort(files, {}, key);
    std::vector<File> kept;
    for (std::size_t index = 0; index < files.size(); ++index) {
        const bool before = index > 0 && key(files[index - 1]) == key(files[index]);
        const bool after = index + 1 < files.size() && key(files[index + 1]) == key(files[index]);
        if (before || after) {
            kept.push_back(files[index]);
        }
    }
    files = std::move(kept);
}

}

void BareComparison::run(const std::string& path) {
    Hasher hasher;
    std::vector<File> files;
    list(path, files);
    keepEqual(files, [](const File& file) { return file.size; });
    for (File& file : files) {
        file.digest = headAndTail(file, hasher);
    }
    keepEqual(files, [](const File& file) { return file.key(); });
    for (File& file : files) {
        // The head was all there is.
        if (file.size > pieceSize) {
            file.digest = whole(file, hasher);
        }
    }
    keepEqual(files, [](const File& file) { return file.key(); });
    duplicates = static_cast<std::int64_t>(files.size());
}

}
