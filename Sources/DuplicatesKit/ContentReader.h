#pragma once

#include <HostKit/Digest.h>
#include <HostKit/ReadableFile.h>

#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace tolvane {

/// Digests what is in files, one after another, through one buffer.
class ContentReader {
  public:
    /// How far reading came.
    enum class Extent : std::uint8_t { whole, part };
    struct Reading {
        /// Of what could be read.
        Digest::Value digest{};
        Extent extent = Extent::part;
    };

    explicit ContentReader(std::function<bool()> isCancelled);

    /// The digest of size, head and tail, by which files that cannot be equal are told apart. Where
    /// head and tail are all there is, the digest of the content in its stead: extent `whole`.
    Reading fingerprint(ReadableFile& file, Bytes size);
    /// The digest of the content; extent `part` when reading failed. Absent when it was cancelled.
    std::optional<Reading> content(ReadableFile& file);

    static void prefetchFingerprint(ReadableFile& file, Bytes size);
    static void prefetchContent(ReadableFile& file);

  private:
    Result<std::span<const std::byte>, SystemError> readPiece(ReadableFile& file, Bytes offset,
                                                              std::size_t length);

    std::function<bool()> isCancelled_;
    Digest digest_;
    std::unique_ptr<std::byte[]> buffer_;
};

}
