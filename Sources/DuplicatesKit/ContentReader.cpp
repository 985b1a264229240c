#include <DuplicatesKit/ContentReader.h>

#include <array>

namespace tolvane {
namespace {

constexpr std::size_t chunkSize = 1'048'576;
constexpr std::size_t pieceSize = 4096;
/// Files up to this size have no tail of their own.
constexpr Bytes headAndTail = 8192;

std::array<std::byte, 8> bigEndian(Bytes number) {
    std::array<std::byte, 8> bytes{};
    auto rest = static_cast<std::uint64_t>(number);
    for (std::size_t at = bytes.size(); at > 0; --at) {
        bytes[at - 1] = static_cast<std::byte>(rest & 0xFF);
        rest >>= 8;
    }
    return bytes;
}

}

ContentReader::ContentReader(std::function<bool()> isCancelled)
    : isCancelled_(std::move(isCancelled))
    , buffer_(std::make_unique_for_overwrite<std::byte[]>(chunkSize)) {}

Result<std::span<const std::byte>, SystemError>
ContentReader::readPiece(ReadableFile& file, Bytes offset, std::size_t length) {
    return file.read(offset, {buffer_.get(), length}).map([&](std::size_t count) {
        return std::span<const std::byte>(buffer_.get(), count);
    });
}

/// A failed read contributes nothing.
ContentReader::Reading ContentReader::fingerprint(ReadableFile& file, Bytes size) {
    constexpr auto piece = static_cast<Bytes>(pieceSize);
    // One byte more than the head shows that a file of this size ends where it should.
    const std::size_t wanted = size <= piece ? pieceSize + 1 : pieceSize;
    const auto head = readPiece(file, 0, wanted);
    if (head && size <= piece && static_cast<Bytes>(head->size()) == size) {
        digest_.update(*head);
        return {digest_.finish(), Extent::whole};
    }
    const std::array<std::byte, 8> sizeBytes = bigEndian(size);
    digest_.update(sizeBytes);
    if (head) {
        digest_.update(head->first(std::min(head->size(), pieceSize)));
    }
    if (size > headAndTail) {
        if (const auto tail = readPiece(file, size - piece, pieceSize)) {
            digest_.update(*tail);
        }
    }
    return {digest_.finish(), Extent::part};
}

std::optional<ContentReader::Reading> ContentReader::content(ReadableFile& file) {
    Extent extent = Extent::part;
    for (Bytes offset = 0;;) {
        const auto read = file.read(offset, {buffer_.get(), chunkSize});
        if (!read || *read == 0) {
            extent = read ? Extent::whole : Extent::part;
            break;
        }
        add(offset, static_cast<Bytes>(*read));
        if (*read == chunkSize) {
            file.prefetch(offset, chunkSize);
        }
        digest_.update({buffer_.get(), *read});
        if (isCancelled_ && isCancelled_()) {
            digest_.finish();
            return std::nullopt;
        }
    }
    return Reading{digest_.finish(), extent};
}

void ContentReader::prefetchFingerprint(ReadableFile& file, Bytes size) {
    file.prefetch(0, pieceSize);
    if (size > headAndTail) {
        file.prefetch(size - static_cast<Bytes>(pieceSize), pieceSize);
    }
}

void ContentReader::prefetchContent(ReadableFile& file) {
    file.prefetch(0, chunkSize);
}

}
